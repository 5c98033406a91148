// What is wrong or risky about a data source.
#ifndef KYODBC_TOOLS_DOCTOR_FINDINGS_H
#define KYODBC_TOOLS_DOCTOR_FINDINGS_H

#include <string>
#include <vector>

// Each finding is one sentence: what is wrong, and its cure.
class Findings {
 public:
  void Add(const std::string& wrong, const std::string& cure) {
    m_sentences.push_back(wrong + ": " + cure + ".");
  }
  const std::vector<std::string>& Sentences() const { return m_sentences; }
  bool Empty() const { return m_sentences.empty(); }

 private:
  std::vector<std::string> m_sentences;
};

#endif
