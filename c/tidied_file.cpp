/// The temporary folder of a tidied deck, and the runs that fill it.
#include "c/tidied_file.h"

#include <random>
#include <string>
#include <system_error>

#include "tidy/run.h"

namespace kvocaeio::c_interface {

namespace {

namespace fs = std::filesystem;

// Of two runs over a deck.
constexpr std::uint64_t kMostPasses = 6;

// Makes a folder that nobody else may look into; returns none where that fails.
fs::path makePrivateFolder() {
    constexpr int kTries = 100;
    std::error_code error;
    const fs::path parent = fs::temp_directory_path(error);
    std::random_device source;
    for (int i = 0; i < kTries && !error; ++i) {
        fs::path folder =
            parent / ("kvocaeio-" + std::to_string(source()) + std::to_string(source()));
        if (!fs::create_directory(folder, error))
            continue;  // somebody has a folder of that name
        fs::permissions(folder, fs::perms::owner_all, error);
        return folder;  // moved: a copy might find no memory, and the folder would stay
    }
    return {};
}

}  // namespace

TidiedFile::~TidiedFile() {
    // Step by step, by what needs no memory.
    std::error_code error;
    if (!path_.empty())
        fs::remove(path_, error);
    if (!folder_.empty())
        fs::remove(folder_, error);
}

kvocaeio_status TidiedFile::run(const Request& request, const fs::path* target) {
    outcome_ = {};
    auto format = static_cast<tidy::DeckFormat>(request.options.format);
    const tidy::Deck deck{request.path, request.name};
    return tidy::runTidy(deck, target, format, outcome_, request.listener())
               ? KVOCAEIO_OK
               : failImport(request, KVOCAEIO_NOT_TIDIED, "the deck cannot be tidied");
}

kvocaeio_status TidiedFile::tidy(const Request& request) {
    static_assert(static_cast<int>(tidy::DeckFormat::kAbaqus) == KVOCAEIO_FORMAT_ABAQUS &&
                  static_cast<int>(tidy::DeckFormat::kNastran) == KVOCAEIO_FORMAT_NASTRAN);
    // The reason of a failure is told with its line, whether the host wants a report or not.
    std::unique_ptr<report::ImportReport> own;
    Request listened = request;
    if (listened.report == nullptr) {
        own = std::make_unique<report::ImportReport>();
        listened.report = own.get();
    }
    expectPasses(request, kMostPasses);
    kvocaeio_status status = run(listened, nullptr);
    if (status != KVOCAEIO_OK)
        return status;
    listened.report->clear();  // the reading of the deck says the same, or the second run
    if (!outcome_.isNeeded)
        return KVOCAEIO_OK;
    folder_ = makePrivateFolder();
    if (folder_.empty())
        return fail(KVOCAEIO_NOT_TIDIED, "no temporary folder can be made", request.name);
    path_ = folder_ / "deck";
    return run(listened, &path_);
}

}  // namespace kvocaeio::c_interface
