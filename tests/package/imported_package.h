/// Imports of small 3DI files, and what the public queries give after them, as short texts.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "support/files.h"
#include <kvocaeio/package.h>

namespace kvocaeio::test {

/// Text of the one error that an index may lead to.
inline constexpr const char* kOutOfRange = "invalid vector<T> subscript";

/// "true" or "false" as the call gives it, or the text of its out-of-range error.
template <class Call>
std::string outcomeOf(const Call& call) {
    try {
        return call() ? "true" : "false";
    } catch (const std::out_of_range& error) {
        return error.what();
    }
}

/// Writes the text to a file, imports that and removes it.
std::string importText(CKVOCadenceReader& reader, std::string_view content);

/// A number with up to twelve digits; "nan" for any that is none.
std::string numberText(double value);

/// All bodies: "DIE1: centre 1 1 0.2, size 2 2 0.2, colour 255" or, of a ball,
/// "TOP: centre 1 1 0.4, diameter 1, colour 16744448".
std::vector<std::string> bodies(CKVOCadenceReader& reader);
inline std::vector<std::string> bodies(CKVOCadenceReader&& reader) {
    return bodies(reader);
}

/// All wires as polylines: "profile 1, diameter 0.025: 0 0 0.3; 1 1 0.5; 2 2 0.1"; for a wire that
/// cannot be had the text of its error.
std::vector<std::string> wires(CKVOCadenceReader& reader);
inline std::vector<std::string> wires(CKVOCadenceReader&& reader) {
    return wires(reader);
}

/// Outcome, name, diameter and colour of a profile: "true: AU25, 0.025, 255". What the query does
/// not touch is a "-".
std::string profileData(CKVOCadenceReader& reader, int profile);

/// One file imported by a new reader.
struct Package {
    explicit Package(std::string_view content) : result(importText(reader, content)) {}
    Package(const Package&) = delete;
    Package& operator=(const Package&) = delete;

    CKVOCadenceReader reader;
    std::string result;
};

/// A colour table with the ids 1 and 2.
inline const std::string kColors = "TABLE COLOR\n1 255 0 0 0\n2 0 128 255 0\n";
/// Object 1 is a body, 2 a ball, 3 neither; layer 1 is the outline, 3 the cap, 2 neither.
inline const std::string kNames =
    "TABLE OBJECT\n1 SYMBOL\n2 BALL\n3 WIREBOND\n"
    "TABLE LAYER\n1 OUTLINE\n2 TOP\n3 PACKAGE CAP\nTABLE END\n";
/// All that stands before wire models and geometries.
inline const std::string kTables = "3DI MM\n" + kColors + kNames;

/// All bodies of a file of `tables` and then `geometries`; the import's result alone where it is
/// not "true".
std::vector<std::string> bodiesOf(const std::string& geometries,
                                  const std::string& tables = kTables);

}  // namespace kvocaeio::test
