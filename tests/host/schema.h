/// JSON Schema, as far as the project's schemas use it.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace kvocaeio::test {

/// What is wrong with `value` by `schema`, a line for each fault: the place, then the rule. An
/// unknown keyword is a fault, too.
std::vector<std::string> faultsOf(const nlohmann::json& value, const nlohmann::json& schema);

}  // namespace kvocaeio::test
