/// The command `kvocaeio info`: one report per file, as text or as JSON.
#include "info.h"

#include <cstdio>
#include <iostream>
#include <new>
#include <sstream>

#include "format.h"

namespace kvocaeio::host {

namespace {

void complain(const std::string& file, const std::string& what) {
    std::cerr << "kvocaeio: " << file << ": " << what << '\n';
}

/// Writes all of `text` to standard output at once; false when it does not arrive there.
bool writeOut(const std::string& text) {
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() &&
           std::fflush(stdout) == 0;
}

/// The report of one file, written to `text` or added to `json`. Throws what stops it.
std::string report(const std::string& file, const InfoOptions& options, std::ostream& text,
                   Json& json) {
    const Format& format = findFormat(file);
    const auto report =
        format.read(file, options.verbose ? PrintTarget::kStandardError : PrintTarget::kNowhere);
    if (options.json) {
        json["format"] = format.name;
        report->addTo(json);
    } else {
        text << file << '\n' << "  " << format.name << '\n';
        report->print(text);
    }
    return report->failure();
}

}  // namespace

bool runInfo(const InfoOptions& options) {
    bool good = true;
    Json reports = Json::array();
    for (const std::string& file : options.files) {
        std::ostringstream text;
        Json json = {{"file", file}};
        std::string failure;
        try {
            failure = report(file, options, text, json);
        } catch (const std::bad_alloc&) {
            failure = "there is not enough memory to read it";
        } catch (const FileError& error) {
            failure = error.what();
        }
        if (!failure.empty()) {
            complain(file, failure);
            json["error"] = failure;
            good = false;
        }
        if (options.json)
            reports.push_back(std::move(json));
        else if (!writeOut(text.str()))
            throw std::runtime_error("the report cannot be written to standard output");
    }
    // Names in a deck may be of any encoding; bytes that are no UTF-8 become replacement
    // characters.
    if (options.json && !writeOut(Json{{"files", std::move(reports)}}.dump(
                                      2, ' ', false, Json::error_handler_t::replace) +
                                  "\n"))
        throw std::runtime_error("the report cannot be written to standard output");
    return good;
}

}  // namespace kvocaeio::host
