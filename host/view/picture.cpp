/// The search for a browser, and its run without a window.
#include "view/picture.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <vector>

#include "c_file.h"
#include "check/uri.h"
#include "clean_name.h"
#include "file_report.h"
#include "file_system.h"
#include "progress_line.h"
#include "replacement_file.h"
#include "temporary_path.h"
#include "tool_run.h"

namespace kvocaeio::host {

namespace {

/// Programs that take Chromium's words on the command line.
constexpr std::array<const char*, 8> kBrowsers = {
    "chromium",
    "chromium-browser",
    "google-chrome",
    "google-chrome-stable",
    "microsoft-edge",
    "chrome",
    "C:\\Program Files\\Google\\Chrome\\Application\\chrome.exe",
    "C:\\Program Files (x86)\\Microsoft\\Edge\\Application\\msedge.exe",
};

std::vector<std::string> findBrowser(const std::string& wanted) {
    const char* const variable = std::getenv("KVOCAEIO_BROWSER");
    const std::string named = !wanted.empty() ? wanted : variable != nullptr ? variable : "";
    if (!named.empty()) {
        if (const auto found = findTool(named))
            return *found;
        throw FileError("cannot be drawn: there is no program " + cleanName(named), "no-browser");
    }
    for (const char* const browser : kBrowsers)
        if (const auto found = findTool(browser))
            return *found;
    throw FileError(
        "cannot be drawn: no Chromium is found; --browser or KVOCAEIO_BROWSER names one",
        "no-browser");
}

/// A folder with all that a program leaves in it, which goes away with its holder.
class ScratchFolder {
  public:
    ScratchFolder() : folder_(TemporaryPath::Kind::kFolder, temporaryFolder()) {}
    ~ScratchFolder() {
        std::error_code error;
        for (const auto& entry :
             std::filesystem::directory_iterator(standardPath(folder_.path()), error))
            std::filesystem::remove_all(entry.path(), error);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::string& path() const { return folder_.path(); }

  private:
    TemporaryPath folder_;
};

/// False where `from` is no whole PNG, or the disk does not take all of it.
bool copyFile(const std::string& from, const std::string& to) {
    constexpr std::string_view kEnd("IEND\xAE\x42\x60\x82", 8);
    const CFile source = openFile(from, "rb");
    const CFile target = openFile(to, "wb");
    if (!source || !target)
        return false;
    std::string block(1 << 16, '\0');
    std::string tail;
    while (const std::size_t size = std::fread(block.data(), 1, block.size(), source.get())) {
        std::fwrite(block.data(), 1, size, target.get());
        tail = (tail + block.substr(0, size)).substr(std::max(size, kEnd.size()) - kEnd.size());
    }
    return tail.ends_with(kEnd) && std::fflush(target.get()) == 0 && std::ferror(target.get()) == 0;
}

std::string sizeWord(std::string size) {
    size[size.find('x')] = ',';
    return "--window-size=" + size;
}

}  // namespace

void drawPicture(const std::function<void(const std::string& path)>& writePage,
                 const std::string& target, const PictureOptions& options) {
    std::vector<std::string> words = findBrowser(options.browser);
    ReplacementFile file(target);
    // No interruption may leave the browser's files behind; it ends the browser, which has the same
    // terminal.
    const InterruptionPause pause;
    const ProgressLine line("drawing");  // its thread is not interrupted either
    const ScratchFolder folder;
    // A browser goes by the endings of names.
    const std::string page = folder.path() + "/page.html";
    const std::string picture = folder.path() + "/picture.png";
    writePage(page);
    for (const std::string& word :
         {std::string("--headless=new"), std::string("--no-first-run"),
          std::string("--disable-extensions"), std::string("--disable-background-networking"),
          std::string("--hide-scrollbars"),
          // A computer without a screen has no graphics processor, and a root user no sandbox.
          std::string("--enable-unsafe-swiftshader"), std::string("--no-sandbox"),
          "--user-data-dir=" + folder.path() + "/profile", sizeWord(options.size),
          "--screenshot=" + picture, uriOf(page, kIsWindows) + "#picture"})
        words.push_back(word);
    const std::vector<ToolRun> runs = runTool(words, options.timeout);
    if (runs.empty() || runs.front().end != ToolRun::End::kExited || runs.front().code != 0)
        throw FileError("cannot be drawn: the browser " +
                            (runs.empty() ? "could not be started" : asText(runs.front())),
                        "not-drawn");
    if (!copyFile(picture, file.path()))
        throw FileError("cannot be drawn: the browser has written no whole picture", "not-drawn");
    file.finish();
}

}  // namespace kvocaeio::host
