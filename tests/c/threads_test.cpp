/// Threads that open, read, fail and write at once, each with handles of its own.
#include <array>
#include <atomic>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

#include "c/opened.h"
#include "c/tetrahedron.h"
#include "support/files.h"

namespace kvocaeio::test {
namespace {

constexpr int kThreads = 4;
constexpr int kTasks = 400;

std::string deckOf(int elements) {
    std::string deck =
        "*NODE\n1, 0., 0., 0.\n2, 1., 0., 0.\n3, 0., 1., 0.\n4, 0., 0., 1.\n"
        "*ELEMENT, TYPE=C3D4, ELSET=BODY\n";
    for (int oid = 1; oid <= elements; ++oid)
        deck += std::to_string(oid) + ", 1, 2, 3, 4\n";
    return deck + "*DLOAD\n1, P2, 1.5\n";
}

// Opens a deck of that many elements; returns what is wrong, or nothing.
std::string faultOf(const std::string& path, std::size_t elements) {
    const ReportHandle report = makeReport();
    kvocaeio_options options = defaultOptions();
    options.normalise = 1;
    options.tidy = 1;
    options.report = report.get();
    const Opened deck(path, options);
    if (deck.status != KVOCAEIO_OK)
        return kvocaeio_error_text();
    kvocaeio_section section{};
    section.struct_size = sizeof section;
    const std::int32_t* rows = nullptr;
    if (kvocaeio_get_section(deck.get(), KVOCAEIO_NORMALISED_SOLIDS, 0, &section) != KVOCAEIO_OK ||
        section.count != elements ||
        kvocaeio_get_connectivity(deck.get(), KVOCAEIO_SECTIONS, 0, KVOCAEIO_ROWS, &rows) !=
            KVOCAEIO_OK ||
        rows[4 * elements - 1] != 3)
        return "wrong tables";
    return "";
}

// A Patran file: the date of a Nastran deck is taken under a lock of the C library, which the
// thread sanitizer does not see.
std::string faultOfWriting(const std::string& path) {
    const Tetrahedron tetrahedron;
    return kvocaeio_write(path.c_str(), KVOCAEIO_FORMAT_PATRAN, &tetrahedron.mesh) == KVOCAEIO_OK
               ? ""
               : kvocaeio_error_text();
}

std::string faultOfFailing(const std::string& path) {
    const Opened missing(path);
    return missing.status == KVOCAEIO_CANNOT_OPEN && kvocaeio_error_file() == path
               ? ""
               : "not the failure of this thread";
}

TEST(CThreads, OfAPoolShareNothing) {
    const TempFolder folder;
    std::array<std::string, 3> decks;
    for (std::size_t i = 0; i < decks.size(); ++i)
        decks[i] = folder.write("deck" + std::to_string(i), deckOf(10 + static_cast<int>(i)));
    std::array<std::string, kThreads> faults;
    std::atomic<int> next{0};
    std::vector<std::thread> pool;
    for (std::string& fault : faults)
        pool.emplace_back([&] {
            for (int task = next++; task < kTasks && fault.empty(); task = next++) {
                const auto deck = static_cast<std::size_t>(task) % decks.size();
                const std::string name = "file" + std::to_string(task);
                fault = task % 7 == 0   ? faultOfWriting(folder.file(name))
                        : task % 7 == 1 ? faultOfFailing(folder.file("missing" + name))
                                        : faultOf(decks[deck], 10 + deck);
            }
        });
    for (std::thread& thread : pool)
        thread.join();
    for (const std::string& fault : faults)
        EXPECT_EQ(fault, "");
}

}  // namespace
}  // namespace kvocaeio::test
