/// The command `kvocaeio info`: one report per file, as text or as JSON.
#include "info/info.h"

#include <cstdio>
#include <iostream>
#include <new>
#include <nlohmann/json.hpp>
#include <sstream>

#include "formats.h"
#include "package/design.h"

namespace kvocaeio::host {

namespace {

struct Opened {
    std::string_view format;
    std::unique_ptr<FileReport> report;
};

Opened openFile(const std::string& path, const InfoOptions&, PrintTarget progress) {
    const Format& format = findFormat(path);
    return {format.name, format.read(path, progress)};
}

Opened openDesign(const std::string& path, const InfoOptions& options, PrintTarget progress) {
    return {kCadenceFormat.name, readDesign(path, options.tool, options.toolFolder, progress)};
}

Opened openReports(const std::string& path, const InfoOptions&, PrintTarget progress) {
    return {kCadenceFormat.name, readDesignReports(path, progress)};
}

void complain(const std::string& file, const std::string& what) {
    std::cerr << "kvocaeio: " << file << ": " << what << '\n';
}

/// Writes all of `output` to standard output at once; false when it does not arrive there.
bool writeOut(const std::string& output) {
    return std::fwrite(output.data(), 1, output.size(), stdout) == output.size() &&
           std::fflush(stdout) == 0;
}

/// What one report is to be made of.
struct Job {
    std::string path;
    Opened (*open)(const std::string& path, const InfoOptions& options, PrintTarget progress);
};

std::vector<Job> jobsOf(const InfoOptions& options) {
    std::vector<Job> jobs;
    for (const std::string& file : options.files)
        jobs.push_back({file, options.tool.empty() ? openFile : openDesign});
    if (!options.reportsFolder.empty())
        jobs.push_back({options.reportsFolder, openReports});
    return jobs;
}

/// The report of one job, written to `out` or added to `json`; what went wrong in spite of it.
/// Throws what stops it.
std::string report(const Job& job, const InfoOptions& options, std::ostream& out, Json& json) {
    const auto [format, report] = job.open(
        job.path, options, options.verbose ? PrintTarget::kStandardError : PrintTarget::kNowhere);
    if (options.json) {
        json["format"] = format;
        report->addTo(json);
    } else {
        out << job.path << '\n' << "  " << format << '\n';
        report->print(out);
    }
    return report->failure();
}

}  // namespace

bool runInfo(const InfoOptions& options) {
    bool good = true;
    Json reports = Json::array();
    for (const Job& job : jobsOf(options)) {
        std::ostringstream out;
        Json json = {{"file", job.path}};
        std::string failure;
        try {
            failure = report(job, options, out, json);
        } catch (const std::bad_alloc&) {
            failure = "there is not enough memory to read it";
        } catch (const FileError& error) {
            failure = error.what();
        }
        if (!failure.empty()) {
            complain(job.path, failure);
            json["error"] = failure;
            good = false;
        }
        if (options.json)
            reports.push_back(std::move(json));
        else if (!writeOut(out.str()))
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
