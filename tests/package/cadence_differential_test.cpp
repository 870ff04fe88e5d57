/// Random extraction reports: the library and the plain import must leave the same behind.
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "package/cadence_generator.h"
#include "package/cadence_naive.h"
#include "package/cadence_reports.h"

namespace kvocaeio::test {
namespace {

// File work is several times as slow under Wine, and so is everything under a sanitizer.
#if defined(_WIN32) || !defined(NDEBUG)
constexpr std::uint64_t kTriples = 600;
constexpr std::size_t kStep = 29;
#else
constexpr std::uint64_t kTriples = 10000;
constexpr std::size_t kStep = 1;
#endif
constexpr std::uint64_t kFirstSeed = 20240905;

/// A number bit for bit; the bits of one that is none mean nothing.
void put(std::string& out, double value) {
    char bits[24] = " nan";
    if (!std::isnan(value))
        std::snprintf(bits, sizeof bits, " %016llx",
                      static_cast<unsigned long long>(std::bit_cast<std::uint64_t>(value)));
    out += bits;
}

std::string bodyText(const std::string& name, const double* center, const double* size) {
    std::string out = "'" + name + "'";
    for (int i = 0; i < 3; ++i)
        put(out, center[i]);
    for (int i = 0; i < 3; ++i)
        put(out, size[i]);
    return out + "\n";
}

std::string bodiesOf(const NaiveCadence& plain) {
    std::string out;
    if (plain.components)
        for (const NaiveComponent& body : *plain.components)
            out += bodyText(body.name, body.center, body.size);
    return out;
}

std::string exactBodiesOf(CKVOCadenceReader& reader) {
    std::string out;
    std::vector<char> name(2048);
    for (int i = 0; i < reader.GetComponentCount(); ++i) {
        int isBall = -1;
        double center[3] = {}, size[5] = {};
        unsigned color = 77;
        if (!reader.GetComponentData(i, name.data(), isBall, center, size, color))
            return out + "no body\n";
        if (isBall != 0 || color != 0 || size[3] != 0.0 || size[4] != 0.0)
            out += "a ball, or coloured: ";
        out += bodyText(name.data(), center, size);
    }
    return out + (reader.GetWireLineCount() == 0 ? "" : "wires\n");
}

template <class Import>
std::string resultOf(const Import& import) {
    try {
        return import() ? "true\n" : "false\n";
    } catch (const std::out_of_range& error) {
        return std::string("throws ") + error.what() + "\n";
    }
}

/// Both imports of one folder, one or several times.
class BothImports {
  public:
    explicit BothImports(bool wide = false) {
        if (wide)
            reader_.SetTempFilePath(path().wstring().c_str());
        else
            reader_.SetTempFilePath(path().string().c_str());
    }

    /// The outcome by the plain import; by the library it is added to the test's failures where it
    /// is another.
    std::string import(const ReportTriple& reports, const std::string& what) {
        for (std::size_t f = 0; f < 3; ++f)
            if (reports[f] != written()[f])
                write(f, reports[f]);
        std::string library = resultOf([&] { return reader_.ImportCadenceFile("unused.sip"); });
        library += exactBodiesOf(reader_);
        std::string plain = resultOf([&] { return plain_.import(path()); });
        plain += bodiesOf(plain_);
        EXPECT_EQ(library, plain) << what << "\n--- reports:\n" << printed(reports);
        return plain;
    }

  private:
    static const TempFolder& folder() {
        static const TempFolder one;
        return one;
    }
    static const std::filesystem::path& path() { return folder().path(); }
    /// What lies in the folder.
    static ReportTriple& written() {
        static ReportTriple reports;
        return reports;
    }
    static void write(std::size_t f, const std::optional<std::string>& report) {
        // A new file: some file systems wait for the disk when an old one is cut and written.
        const std::string name = "CmdFile" + std::to_string(f + 1) + ".txt";
        std::filesystem::remove(path() / name);
        if (report)
            folder().write(name, *report);
        written()[f] = report;
    }

    static std::string printed(const ReportTriple& reports) {
        std::string out;
        for (const auto& report : reports) {
            for (const char c : report.value_or("(none)\n")) {
                char shown[8];
                std::snprintf(shown, sizeof shown, c < ' ' || c > '~' ? "\\x%02x" : "%c",
                              static_cast<unsigned>(static_cast<unsigned char>(c)));
                out += shown;
                if (c == '\n')
                    out += c;
            }
            out += "\n---\n";
        }
        return out;
    }

    CKVOCadenceReader reader_;
    NaiveCadence plain_;
};

/// The reports of one seed: of one import, or of two by one reader.
std::vector<ReportTriple> triplesOf(std::uint64_t seed) {
    ReportGenerator generator(seed);
    std::vector<ReportTriple> triples(seed % 4 == 0 ? 2 : 1);
    for (ReportTriple& triple : triples)
        triple = generator.triple();
    return triples;
}

TEST(CadenceDifferential, RandomReportsAreReadAlike) {
    std::size_t imports = 0, filled = 0, empty = 0, refused = 0, partial = 0, thrown = 0;
    for (std::uint64_t seed = kFirstSeed; seed < kFirstSeed + kTriples; ++seed) {
        BothImports both(seed % 3 == 0);
        for (const ReportTriple& triple : triplesOf(seed)) {
            const std::string outcome = both.import(triple, "seed " + std::to_string(seed));
            if (HasFailure())
                return;
            const bool bodies = outcome.find('\'') != std::string::npos;
            ++imports;
            if (outcome.starts_with("true"))
                ++(bodies ? filled : empty);
            else if (outcome.starts_with("false"))
                ++(bodies ? partial : refused);
            else
                ++thrown;
        }
    }
    std::printf(
        "%zu imports: %zu with bodies, %zu without; failed %zu with, %zu without; %zu thrown\n",
        imports, filled, empty, partial, refused, thrown);
    EXPECT_GT(filled * 3, imports) << "most designs are sound";
    EXPECT_GT(empty * 100, imports * 4);
    EXPECT_GT(refused * 10, imports);
    EXPECT_GT(partial * 100, imports);
    EXPECT_GT(thrown * 100, imports);
}

/// A .sip design in which every byte matters to somebody.
const ReportTriple kSample = {
    "A!REFDES!SYM_NAME!SYM_BOX_X1!SYM_BOX_Y1!SYM_BOX_X2!SYM_BOX_Y2!GRAPHIC_DATA_NAME!"
    "GRAPHIC_DATA_1!GRAPHIC_DATA_2!GRAPHIC_DATA_3!GRAPHIC_DATA_4!\r\n"
    "J!a.sip!2!3!4!5!6!7!inch!9!10!11!12!\n"
    "S!PBGA!B!1!2!3!4!Rectangle!-2!-1.5!2e0!1!\n"
    "S!DIE!D!1!2!3!4!!0!0!0!0!\n",
    "A!LAYER_SORT!LAYER_SUBCLASS!LAYER_TYPE!LAYER_MATERIAL!LAYER_THICKNESS!\n"
    "J!a.sip!\n"
    "S!1!!DIESTACK!AIR!2 MIL!\n"
    "S!1!!CONDUCTOR!C!3 MIL!\n"
    "S!3!!Conductor!C!1.5 x!\n",
    "A!DSA_MEMBER_TYPE!DSA_MEMBER_NAME!DSA_EXTENTS_X1!DSA_EXTENTS_Y1!DSA_EXTENTS_X2!"
    "DSA_EXTENTS_Y2!DSA_STACK_HEIGHT_MIN!DSA_STACK_HEIGHT_MAX!\n"
    "S!DIE!d!0!0!1!1!0!.2!\n"
    "S!Spacer!s!0!0!1!1!.2!.3!\n"};

/// The sample with "mcm" in place of "sip".
ReportTriple mcmSample() {
    ReportTriple sample = kSample;
    for (std::size_t f = 0; f < 2; ++f)
        sample[f] = changed(*sample[f], ".sip", ".mcm");
    return sample;
}

TEST(CadenceDifferential, ReportsCutAtEveryByteAreReadAlike) {
    for (const ReportTriple& sample : {kSample, mcmSample()})
        for (std::size_t f = 0; f < 3; ++f)
            for (std::size_t length = 0; length <= sample[f]->size(); length += kStep) {
                ReportTriple cut = sample;
                cut[f]->resize(length);
                BothImports().import(cut, "cut");
                ASSERT_FALSE(HasFailure());
            }
}

TEST(CadenceDifferential, ReportsWithEachByteReplacedAreReadAlike) {
    for (const ReportTriple& sample : {kSample, mcmSample()})
        for (std::size_t f = 0; f < 3; ++f)
            for (std::size_t at = 0; at < sample[f]->size(); at += kStep)
                for (const char byte : {'\0', '\n', '!', ' ', '9'}) {
                    ReportTriple other = sample;
                    (*other[f])[at] = byte;
                    BothImports().import(other, "replaced");
                    ASSERT_FALSE(HasFailure());
                }
}

TEST(CadenceDifferential, LinesAboutTheBoundAreReadAlike) {
    for (std::size_t f = 0; f < 3; ++f) {
        const std::string& report = *kSample[f];
        const std::size_t start = report.rfind('\n', report.size() - 2) + 1;
        const std::string row = report.substr(start, report.size() - 1 - start);
        for (const std::size_t bound : {1022U, 2045U, 3068U})
            for (std::size_t length = bound - 3; length <= bound + 4; ++length)
                for (const char* behind : {"\n", "\r\n", "", "S!", "!", "\r"})
                    for (const std::size_t place : {row.size(), row.find('!', 2) + 1}) {
                        std::string line = row;
                        line.insert(place, length - row.size(), 'x');
                        ReportTriple other = kSample;
                        other[f] = report.substr(0, start) + line + behind + row + "\n" + row;
                        BothImports().import(other, std::to_string(length));
                        ASSERT_FALSE(HasFailure());
                    }
    }
}

/// A header with as many further columns, and their cells behind each row.
std::string widened(const std::string& header, const std::string& job, const std::string& rows,
                    std::size_t extra) {
    std::string cells;
    while (cells.size() < extra)
        cells += "!";
    std::string out = header.substr(0, header.size() - 1) + cells + "\n" + job;
    for (std::size_t at = 0, end = 0; at < rows.size(); at = end + 1) {
        end = rows.find('\n', at);
        out += rows.substr(at, end - at) + cells + "\n";
    }
    return out;
}

TEST(CadenceDifferential, LargeReportsAreReadAlike) {
    Random random(kFirstSeed);
    const std::size_t rowCount = 1500;
    for (const std::size_t extra : {0U, 1U, 2U, 3U, 4U, 5U, 6U, 7U, 500U}) {
        const std::string type = extra % 2 == 0 ? ".sip" : ".mcm";
        std::string rows[3];
        for (std::size_t r = 0; r < rowCount; ++r) {
            const std::string number = std::to_string(r);
            rows[0] += r + 1 == rowCount
                           ? kSubstrateRow
                           : "S!U" + number + "!" + std::string(random.below(30), 'n') +
                                 "!1!2!3!4!TEXT!5!6!7!8!\n";
            rows[1] += layer(r < 1000         ? "DIESTACK"
                             : r % 256 == 255 ? "CONDUCTOR"
                                              : "PLANE",
                             number + " MIL", r < 1300 ? "AIR" : "");
            rows[2] += "S!" + std::string(random.oneIn(3) ? "DIE" : "SPACER") + "!" +
                       std::string(random.below(40), 'a') + number + "!0!" + number +
                       "!2!3!4!5.5!\n";
        }
        const ReportTriple reports = {
            widened(kSymbolHeader, job("a" + type, "inch"), rows[0], extra),
            widened(kLayerHeader, job("a" + type), rows[1], extra),
            widened(kStackHeader, "", rows[2], extra)};
        const std::string outcome = BothImports().import(reports, std::to_string(extra));
        EXPECT_TRUE(outcome.starts_with("true\n'SUBSTRATE'")) << extra;
        ASSERT_FALSE(HasFailure());
    }
}

}  // namespace
}  // namespace kvocaeio::test
