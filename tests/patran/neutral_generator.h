/// Random small neutral files that look for trouble.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <random>
#include <string>
#include <vector>

namespace kvocaeio::test {

/// Makes one case per seed, the same each time in one build.
class NeutralGenerator {
  public:
    explicit NeutralGenerator(std::uint64_t seed) : random_(seed) {}

    /// The files that one reader imports one after the other; mostly a single one.
    std::vector<std::string> files();

  private:
    std::size_t below(std::size_t count) { return static_cast<std::size_t>(random_() % count); }
    bool chance(unsigned percent) { return below(100) < percent; }
    const char* pick(std::initializer_list<const char*> list) {
        return list.begin()[below(list.size())];
    }

    std::string file();
    std::string real();
    std::string field(int value);
    std::string cardCount(int sound);
    int nodeId();

    /// Adds one card, at times damaged, and its line end.
    void card(std::string text);
    std::string lengthened(std::string text);
    std::string damagedCard(std::string text);
    void addHeader(int it, const std::string& id, const std::string& iv, const std::string& kc,
                   const std::vector<std::string>& rest);
    void addSummary();
    void addNode();
    void addElement();
    void addProperty();
    void addOther();
    void addSections();
    void damageBytes();

    std::mt19937_64 random_;
    std::string text_;
    std::vector<int> ids_;   ///< of the nodes so far
    unsigned noise_ = 0;     ///< damaged cards in a thousand
    unsigned lineEnds_ = 0;  ///< 0 LF, 1 CR LF, 2 any
    std::size_t nodes_ = 0, elements_ = 0, properties_ = 0;
};

}  // namespace kvocaeio::test
