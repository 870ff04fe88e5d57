/// Pictures of pages, drawn by a browser.
#pragma once

#include <functional>
#include <string>

namespace kvocaeio::host {

struct PictureOptions {
    std::string browser;  ///< program; empty: one that is found
    std::string size;     ///< "1200x800"
    double timeout;       ///< seconds
};

/// Has a browser draw the page that `writePage` writes to the path that it is handed, and writes
/// what it shows to `target`, a PNG. Throws `FileError` where there is no browser, or it draws
/// nothing.
void drawPicture(const std::function<void(const std::string& path)>& writePage,
                 const std::string& target, const PictureOptions& options);

}  // namespace kvocaeio::host
