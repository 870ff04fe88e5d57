/// Bounded lines against `fgets` on random files of several blocks.
#include <cstdio>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/files.h"
#include "text/file.h"
#include "text/line_reader.h"
#include "text/naive_input.h"
#include "text/random.h"

namespace kvocaeio::text {
namespace {

constexpr std::size_t kBlockSize = std::size_t{1} << 18;

// Up to three blocks, with the bytes that matter at and around the block borders.
std::string randomBytes(test::Random& random) {
    std::string bytes;
    const std::size_t size = random.below(3 * kBlockSize);
    const std::size_t shortness = 1 + random.below(60);
    const bool hasNuls = random.oneIn(3);
    while (bytes.size() < size) {
        const std::size_t length = random.oneIn(50) ? random.below(3000) : random.below(shortness);
        bytes.append(length, static_cast<char>('a' + random.below(26)));
        if (hasNuls && random.oneIn(20))
            bytes += '\0';
        constexpr const char* kEnds[] = {"\n", "\n", "\r\n", "\r\n", "\r", "\r\r\n", "\n\r", " \n"};
        bytes += kEnds[random.below(std::size(kEnds))];
    }
    for (std::size_t border = kBlockSize; border + 2 < bytes.size(); border += kBlockSize)
        for (std::size_t at = border - 2; at < border + 2; ++at)
            bytes[at] = "\r\r\n\nx"[random.below(5)];
    if (random.oneIn(4) && !bytes.empty())
        bytes[bytes.size() - 1 - random.below(std::min<std::size_t>(bytes.size(), 1000))] = '\x1A';
    return bytes;
}

void expectSameLines(std::FILE* plain, LineReader& reader, std::size_t bound,
                     test::Random& random) {
    std::vector<char> buffer(bound);
    const auto nextPlain = [&] {
        const std::size_t lineBound = random.oneIn(8) ? 2 + random.below(bound - 1) : bound;
        reader.setBound(lineBound);
        return std::fgets(buffer.data(), static_cast<int>(lineBound), plain) != nullptr;
    };
    while (nextPlain()) {
        ASSERT_TRUE(reader.next());
        ASSERT_EQ(reader.line(), buffer.data());
        ASSERT_EQ(reader.metEnd(), std::feof(plain) != 0);
        if (random.oneIn(8)) {
            reader.giveBack();
            ASSERT_TRUE(reader.next());
            ASSERT_EQ(reader.line(), buffer.data());
        }
    }
    const std::string last(reader.line());
    ASSERT_FALSE(reader.next());
    ASSERT_EQ(reader.line(), last);
    ASSERT_TRUE(reader.metEnd());
}

TEST(LineReaderAgainstFgets, RandomFiles) {
    const test::TempFolder folder;
    test::Random random(1);
    constexpr std::size_t kBounds[] = {2, 3, 82, 225, 512, 4096};
    for (int round = 0; round < 60; ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        const std::string bytes = randomBytes(random);
        const LineMode mode = round % 2 == 0 ? LineMode::kBinary : LineMode::kText;
        const std::size_t bound = kBounds[random.below(std::size(kBounds))];
        const File plain = openFile(
            folder.write("plain", mode == LineMode::kText ? test::asText(bytes) : bytes).c_str(),
            "rb");
        const File file = openFile(folder.write("file", bytes).c_str(), "rb");
        LineReader reader(file.get(), bound, mode);
        expectSameLines(plain.get(), reader, bound, random);
        if (HasFatalFailure())
            return;
    }
}

}  // namespace
}  // namespace kvocaeio::text
