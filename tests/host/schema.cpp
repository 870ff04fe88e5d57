/// The keywords of JSON Schema, one after the other.
#include "host/schema.h"

#include <algorithm>
#include <regex>
#include <set>

namespace kvocaeio::test {

namespace {

using nlohmann::json;

class Validator {
  public:
    explicit Validator(const json& root) : root_(root) {}

    void check(const json& value, const json& schema, const std::string& place) {
        checkKeywords(schema, place);
        if (schema.contains("$ref"))
            check(value, root_.at(json::json_pointer(schema["$ref"].get<std::string>().substr(1))),
                  place);
        if (schema.contains("anyOf") && !fitsAny(value, schema["anyOf"]))
            fault(place, "anyOf");
        if (schema.contains("const") && value != schema["const"])
            fault(place, "const");
        if (schema.contains("enum") && !holds(schema["enum"], value))
            fault(place, "enum, " + value.dump());
        if (schema.contains("type") && !isOfType(value, schema["type"]))
            fault(place, "type, " + value.dump());
        if (value.is_number() && schema.contains("minimum") && value < schema["minimum"])
            fault(place, "minimum");
        if (value.is_string() && schema.contains("pattern") &&
            !std::regex_search(value.get<std::string>(),
                               std::regex(schema["pattern"].get<std::string>())))
            fault(place, "pattern");
        if (value.is_array())
            checkArray(value, schema, place);
        if (value.is_object())
            checkObject(value, schema, place);
    }

    std::vector<std::string> faults;

  private:
    void fault(const std::string& place, const std::string& rule) {
        faults.push_back(place + ": " + rule);
    }

    void checkKeywords(const json& schema, const std::string& place) {
        static const std::set<std::string> kKnown = {"$schema",
                                                     "$defs",
                                                     "$ref",
                                                     "title",
                                                     "description",
                                                     "anyOf",
                                                     "const",
                                                     "enum",
                                                     "type",
                                                     "minimum",
                                                     "pattern",
                                                     "items",
                                                     "minItems",
                                                     "maxItems",
                                                     "properties",
                                                     "required",
                                                     "additionalProperties"};
        for (const auto& [keyword, rule] : schema.items())
            if (!kKnown.contains(keyword))
                fault(place, "unknown keyword " + keyword);
    }

    static bool holds(const json& list, const json& value) {
        return std::find(list.begin(), list.end(), value) != list.end();
    }

    static bool isOfType(const json& value, const json& types) {
        if (types.is_array())
            return std::any_of(types.begin(), types.end(),
                               [&](const json& type) { return isOfType(value, type); });
        return (types == "integer" && value.is_number_integer()) ||
               (types == "number" && value.is_number()) ||
               (types == "string" && value.is_string()) ||
               (types == "boolean" && value.is_boolean()) || (types == "null" && value.is_null()) ||
               (types == "array" && value.is_array()) || (types == "object" && value.is_object());
    }

    bool fitsAny(const json& value, const json& schemas) const {
        return std::any_of(schemas.begin(), schemas.end(), [&](const json& schema) {
            Validator attempt(root_);
            attempt.check(value, schema, "");
            return attempt.faults.empty();
        });
    }

    void checkArray(const json& value, const json& schema, const std::string& place) {
        if (value.size() < schema.value("minItems", std::size_t{0}) ||
            value.size() > schema.value("maxItems", value.size()))
            fault(place, "number of items");
        if (schema.contains("items"))
            for (std::size_t i = 0; i < value.size(); ++i)
                check(value[i], schema["items"], place + "/" + std::to_string(i));
    }

    void checkObject(const json& value, const json& schema, const std::string& place) {
        for (const json& key : schema.value("required", json::array()))
            if (!value.contains(key.get<std::string>()))
                fault(place, "required, " + key.dump());
        const json known = schema.value("properties", json::object());
        for (const auto& [key, member] : value.items()) {
            if (known.contains(key))
                check(member, known[key], place + "/" + key);
            else if (!schema.value("additionalProperties", true))
                fault(place, "additionalProperties, " + key);
        }
    }

    const json& root_;
};

}  // namespace

std::vector<std::string> faultsOf(const json& value, const json& schema) {
    Validator validator(schema);
    validator.check(value, schema, "");
    return validator.faults;
}

}  // namespace kvocaeio::test
