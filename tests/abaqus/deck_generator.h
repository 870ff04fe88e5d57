/// Random small decks that look for trouble.
#pragma once

#include <cstdint>
#include <string>

#include "text/random.h"

namespace kvocaeio::test {

/// Makes one deck per seed, the same each time in one build.
class DeckGenerator : Random {
  public:
    explicit DeckGenerator(std::uint64_t seed) : Random(seed) {}

    /// Blocks of all kinds, mostly sound, with noise between and in them; then damaged at times.
    std::string deck();

  private:
    std::string mixedCase(std::string text);
    std::string integer();
    std::string real();
    std::string name();
    std::string separator();
    std::string parameter(const char* parameterName, const std::string& value);
    std::string lengthened(std::string line);
    std::string lineEnd();

    /// Adds one line, now and then stretched over a bound of the line buffer.
    void line(const std::string& text);
    void noise();
    void nodes();
    void elements();
    void element(int nodeCount);
    void elset();
    void surface();
    void dload();
    void shellSection();
    void unknown();
    void damage();

    std::string deck_;
    unsigned lineEnds_ = 0;  ///< 0 LF, 1 CR LF, 2 any
};

}  // namespace kvocaeio::test
