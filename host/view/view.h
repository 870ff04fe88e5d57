/// The command `kvocaeio view`.
#pragma once

#include <array>
#include <string>

namespace kvocaeio::host {

inline constexpr std::array<const char*, 7> kViewNames = {"iso",   "front", "back",  "left",
                                                          "right", "top",   "bottom"};

struct ViewOptions {
    std::string source;             ///< "-" is standard input
    std::string page;               ///< the HTML file to write; empty for none
    std::string picture;            ///< the PNG file to write; empty for none
    std::string size = "1200x800";  ///< of the picture, in pixels
    std::string browser;         ///< the program that draws the picture; empty: one that is found
    double toolTimeout = 120.0;  ///< seconds after which the browser is ended
    std::string view = "iso";    ///< one of `kViewNames`
    std::string finding;         ///< code of a finding to fly to and mark
    std::string cut;          ///< axis of a cutting plane, and with a colon its place from 0 to 1
    std::string theme;        ///< "light" or "dark"; empty: as the reader's system has it
    double stretch = 1.0;     ///< of a package along z
    bool parallel = false;    ///< parallel instead of perspective projection
    bool edges = false;       ///< with the edges of all elements
    bool normalised = false;  ///< the normalised mesh of an Abaqus deck
    bool asIs = false;        ///< read the source as it is, without tidying
    bool json = false;        ///< report as JSON
    bool quiet = false;       ///< no report
    bool verbose = false;     ///< the library's progress lines go to standard error, else nowhere
};

/// What is wrong with the value of --cut or of --size; empty where nothing is.
std::string faultOfCut(const std::string& cut);
std::string faultOfSize(const std::string& size);

/// Writes a page that shows the source, a picture of it, or both. Reports on standard output what
/// was written, and on standard error why it failed; the files are as they were then. True when
/// nothing failed.
bool runView(const ViewOptions& options);

}  // namespace kvocaeio::host
