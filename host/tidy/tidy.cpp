/// The command `kvocaeio tidy`: a deck rewritten as the readers take it whole.
#include "tidy/tidy.h"

#include <array>
#include <filesystem>
#include <iostream>
#include <new>
#include <optional>
#include <system_error>
#include <utility>

#include "check/output.h"
#include "clean_name.h"
#include "file_report.h"
#include "formats.h"
#include "input_file.h"
#include "replacement_file.h"
#include "standard_output.h"
#include "tidy/report.h"
#include <kvocaeio/tidy.h>

namespace kvocaeio::host {

namespace {

/// A failure that is not of the source.
struct TargetError : FileError {
    TargetError(std::string path, const std::string& text, std::string_view reason)
        : FileError(text, reason), file(std::move(path)) {}

    std::string file;
};

void refuseSameFile(const std::string& path, const std::string& other,
                    const std::optional<FileIdentity>& identity, const char* text) {
    std::error_code error;
    const bool areSame = std::filesystem::weakly_canonical(standardPath(path), error) ==
                         std::filesystem::weakly_canonical(standardPath(other), error);
    if ((areSame && !error) || (identity && identity == identityOf(path)))
        throw TargetError(path, std::string("cannot be written: it is ") + text, "same-file");
}

/// Tidies as what the content says; where that says nothing, as the name does. An empty `target` is
/// for a look only.
TidyRun tidyFile(CKVODeckTidy& tidy, const InputFile& source, const TidyOptions& options,
                 const std::string& target) {
    const auto runAs = [&](int format) {
        return runTidy(tidy, source.path(), options.source, target, format);
    };
    TidyRun run = runAs(CKVODeckTidy::kRecognise);
    if (run.failureCode != "tidy.format-unknown")
        return run;
    const Format& format = findFormat(source.path(), MarkRule::kAccept);
    if (format.tidyFormat == CKVODeckTidy::kRecognise)
        throw FileError("is of a format that needs no tidying (" + std::string(format.name) +
                            "); it is read whole as it is",
                        "not-tidied");
    return runAs(format.tidyFormat);
}

std::string_view codeOf(int format) {
    constexpr std::array<std::string_view, 3> kCodes = {"", "abaqus", "nastran"};
    return kCodes[static_cast<std::size_t>(format)];
}

std::string_view reasonOf(std::string_view failureCode) {
    if (failureCode == "tidy.output-failed")
        return "cannot-be-written";
    if (failureCode == "file.out-of-memory")
        return "out-of-memory";
    return failureCode.starts_with("file.") ? "cannot-be-read" : "not-tidied";
}

void tidyTo(const std::string& target, const InputFile& source, const TidyOptions& options,
            CKVODeckTidy& tidy, TidyResult& result) {
    result.run = tidyFile(tidy, source, options, target);
    result.format = codeOf(tidy.GetFormat());
    result.isChanged = tidy.IsNeeded();
    result.deviation = tidy.GetDeviation();
    if (!result.run.good)
        throw FileError("cannot be tidied: " + result.run.failure,
                        reasonOf(result.run.failureCode));
}

/// Writes the map, which takes its place once the deck is there, too.
void writeMap(const ReplacementFile& map, CKVODeckTidy& tidy) {
    const InterruptionPause pause;  // as for decks
    if (!tidy.WriteMap(standardPath(map.path()).c_str()))
        throw FileError("cannot be written as a whole: the disk may be full", "cannot-be-written");
}

template <class Step>
void onMap(const TidyOptions& options, const Step& step) {
    try {
        step();
    } catch (const FileError& error) {
        throw TargetError(options.mapFile, error.what(), error.code);
    }
}

void tidy(const TidyOptions& options, TidyResult& result) {
    const InputFile source(options.source);
    refuseSameFile(options.target, source.path(), source.identity(), "the file that is read");
    CKVODeckTidy tidy;
    std::optional<ReplacementFile> map;
    if (!options.mapFile.empty()) {
        refuseSameFile(options.mapFile, source.path(), source.identity(), "the file that is read");
        refuseSameFile(options.mapFile, options.target, identityOf(options.target), "the new deck");
        onMap(options, [&] { map.emplace(options.mapFile); });
        tidyTo("", source, options, tidy, result);
        if (tidy.IsSource(standardPath(options.mapFile).c_str()))
            throw TargetError(options.mapFile, "cannot be written: the deck includes it",
                              "same-file");
        onMap(options, [&] { writeMap(*map, tidy); });
    }
    tidyTo(options.target, source, options, tidy, result);
    if (map)
        onMap(options, [&] { map->finish(); });
}

void listFindings(const TidyOptions& options, const TidyResult& result) {
    CheckedFile checked{options.source, result.format, result.run.findings,
                        result.run.findings.tally()};
    checked.import.sort();
    textOutput(false)->add(checked);
}

}  // namespace

bool runTidyCommand(const TidyOptions& options) {
    TidyResult result;
    std::string failed = options.source;
    const auto fail = [&](std::string_view code, const std::string& text) {
        result.failureCode = code;
        result.failure = text;
    };
    try {
        tidy(options, result);
    } catch (const TargetError& error) {
        failed = error.file;
        fail(error.code, error.what());
    } catch (const FileError& error) {
        fail(error.code, error.what());
    } catch (const std::bad_alloc&) {
        fail("out-of-memory", "there is not enough memory for it");
    }
    const bool good = result.failureCode.empty();
    if (!good)
        std::cerr << "kvocaeio: " << shownName(failed) << ": " << result.failure << '\n';
    if (options.json)
        writeOut(tidyJson(result, options));
    if (options.report && !options.json)
        listFindings(options, result);
    if (good && !options.json && !options.quiet)
        writeOut(tidyText(result, options));
    return good;
}

}  // namespace kvocaeio::host
