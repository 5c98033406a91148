#include "tools/data/checksum.h"

#include <fmt/format.h>
#include <openssl/evp.h>

#include <cstring>
#include <fstream>
#include <memory>
#include <vector>

#include "tools/interruption.h"
#include "tools/tool_error.h"

namespace {

constexpr std::size_t kBytes = 32;
using Digest = std::array<unsigned char, kBytes>;

class Sha256 {
 public:
  Sha256() { EVP_DigestInit_ex(m_context.get(), EVP_sha256(), nullptr); }

  void Add(const void* data, std::size_t size) { EVP_DigestUpdate(m_context.get(), data, size); }
  Digest Finish() {
    Digest digest{};
    EVP_DigestFinal_ex(m_context.get(), digest.data(), nullptr);
    return digest;
  }

 private:
  struct Free {
    void operator()(EVP_MD_CTX* context) const { EVP_MD_CTX_free(context); }
  };
  std::unique_ptr<EVP_MD_CTX, Free> m_context{EVP_MD_CTX_new()};
};

std::string Hex(const Digest& digest) { return fmt::format("{:02x}", fmt::join(digest, "")); }

}  // namespace

// The length before each value keeps neighbours apart.
void Checksum::Add(const Row& row) {
  Sha256 hash;
  for (const Value& value : row) {
    const std::uint64_t length = value ? value->size() + 1 : 0;
    hash.Add(&length, sizeof length);
    if (value) hash.Add(value->data(), value->size());
  }
  const Digest digest = hash.Finish();
  std::array<std::uint64_t, 2> half{};
  std::memcpy(half.data(), digest.data(), sizeof half);
  for (std::size_t i = 0; i < half.size(); ++i) m_sum[i] += half[i];
  ++m_rows;
}

std::string Checksum::Text() const { return fmt::format("{:016x}{:016x}", m_sum[0], m_sum[1]); }

std::string Sha256OfText(const std::string& text) {
  Sha256 hash;
  hash.Add(text.data(), text.size());
  return Hex(hash.Finish());
}

std::string Sha256OfFile(const std::filesystem::path& file) {
  constexpr std::size_t kBlock = 1 << 20;
  std::ifstream stream(file, std::ios::binary);
  std::vector<char> block(kBlock);
  Sha256 hash;
  while (stream) {
    Interruption::Check();
    stream.read(block.data(), kBlock);
    hash.Add(block.data(), static_cast<std::size_t>(stream.gcount()));
  }
  if (!stream.eof()) throw ToolError(kFailed, fmt::format("cannot read {}", file.string()));
  return Hex(hash.Finish());
}
