/// Small extraction reports for tests, and the bodies of a reader as text.
#pragma once

#include <array>
#include <cstdio>
#include <string>

#include <kvocaeio/package.h>

namespace kvocaeio::test {

/// A symbol report in millimetres: a substrate of 4 x 2 around the origin, a die of 2 x 1 on it.
inline std::string symbolReport(const std::string& design) {
    return "A!REFDES!SYM_NAME!SYM_BOX_X1!SYM_BOX_Y1!SYM_BOX_X2!SYM_BOX_Y2!GRAPHIC_DATA_NAME!"
           "GRAPHIC_DATA_1!GRAPHIC_DATA_2!GRAPHIC_DATA_3!GRAPHIC_DATA_4!\n"
           "J!" +
           design +
           "!2!3!4!5!6!7!millimeters!9!10!11!12!\n"
           "S!BGA!BGA_400!-9!-9!9!9!RECTANGLE!-2!-1!2!1!\n"
           "S!DIE!Flip Chip!-1!-0.5!1!0.5!LINE!0!0!0!0!\n";
}

/// A layer report: the substrate is 10 mils high, 0.254 mm, and the die 20 mils, 0.508 mm.
inline std::string layerReport(const std::string& design) {
    return "A!LAYER_SORT!LAYER_SUBCLASS!LAYER_TYPE!LAYER_MATERIAL!LAYER_THICKNESS!\n"
           "J!" +
           design +
           "!\n"
           "S!1!D!DIESTACK!SILICON!20 MIL!\n"
           "S!2!TOP!CONDUCTOR!COPPER!3 MIL!\n"
           "S!3!!DIELECTRIC!FR-4!4 MIL!\n"
           "S!4!BOT!CONDUCTOR!COPPER!3 MIL!\n";
}

/// A die stack report: a die of 1 x 1 x 0.2 and a spacer of 1 x 1 x 0.1 on it.
inline std::string dieStackReport() {
    return "A!DSA_MEMBER_TYPE!DSA_MEMBER_NAME!DSA_EXTENTS_X1!DSA_EXTENTS_Y1!DSA_EXTENTS_X2!"
           "DSA_EXTENTS_Y2!DSA_STACK_HEIGHT_MIN!DSA_STACK_HEIGHT_MAX!\n"
           "S!DIE!Lower!0!0!1!1!0!0.2!\n"
           "S!SPACER!Gap!0!0!1!1!0.2!0.3!\n";
}

inline constexpr const char* kMcmBodies =
    "SUBSTRATE at 0 0 0.127, 4 x 2 x 0.254\n"
    "Flip Chip at 0 0 0.508, 2 x 1 x 0.508\n";

inline constexpr const char* kSipBodies =
    "SUBSTRATE at 0 0 0.127, 4 x 2 x 0.254\n"
    "Lower at 0.5 0.5 0.354, 1 x 1 x 0.2\n"
    "Gap at 0.5 0.5 0.504, 1 x 1 x 0.1\n";

/// All bodies, a line each.
inline std::string bodiesOf(CKVOCadenceReader& reader) {
    std::string content;
    std::array<char, 1024> name{};
    int isBall = 0;
    double center[3] = {};
    double size[5] = {};
    unsigned color = 0;
    for (int i = 0; reader.GetComponentData(i, name.data(), isBall, center, size, color); ++i) {
        std::array<char, 200> numbers{};
        std::snprintf(numbers.data(), numbers.size(), " at %g %g %g, %g x %g x %g%s\n", center[0],
                      center[1], center[2], size[0], size[1], size[2],
                      isBall == 0 && color == 0 ? "" : ", coloured or a ball");
        content.append(name.data()).append(numbers.data());
    }
    return content;
}

}  // namespace kvocaeio::test
