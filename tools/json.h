// JSON documents by name only; who makes or reads one includes <nlohmann/json.hpp>, which takes long to
// compile.
#ifndef KYODBC_TOOLS_JSON_H
#define KYODBC_TOOLS_JSON_H

#include <nlohmann/json_fwd.hpp>

// Members stay in the order in which they were added.
using Json = nlohmann::ordered_json;

#endif
