/// Random small 3DI files, mostly sound, that look for trouble.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "text/random.h"

namespace kvocaeio::test {

/// Makes one file per seed, the same each time in one build.
class PackageGenerator : Random {
  public:
    explicit PackageGenerator(std::uint64_t seed) : Random(seed) {}

    /// All sections, mostly in their common order, with noise and damage at times.
    std::string file();
    /// The same lines with so much between them that they lie in several blocks of the file.
    std::string largeFile();

  private:
    bool perMille(unsigned count) { return below(1000) < count; }
    int between(int least, int most) {
        return least + static_cast<int>(below(static_cast<std::size_t>(most - least + 1)));
    }
    template <class T>
    void shuffle(std::vector<T>& list) {
        for (std::size_t i = list.size(); i > 1; --i)
            std::swap(list[i - 1], list[below(i)]);
    }

    std::string real();
    std::string id(int usual);
    std::string numbers(int count);
    /// Adds a line, now and then stretched about a bound of the line buffer or with noise behind.
    void line(const std::string& content);
    /// Adds a head line, now and then without its fields or not at all.
    void head(const std::string& content);
    void noise();

    void lines();
    void header();
    void colorTable();
    void nameTable(const char* opening, std::vector<std::string> rows);
    void objectTable();
    void layerTable();
    void wireModels();
    void geometries();
    void block();
    void box(const std::string& object, const std::string& layer);
    void polygon();
    void ball();
    void wire();
    /// Rows of points with `width` numbers each, at most ten to a row, mostly.
    void rows(int points, int width);

    void damageLines();
    std::string joined();
    std::string filler();
    void damageBytes(std::string& content);

    std::vector<std::string> lines_;
    int colors_ = 0;  ///< highest colour id
    int firstId_ = 1;
    unsigned letters_ = 0;   ///< 0 capitals, 1 small, 2 both
    unsigned lineEnds_ = 0;  ///< 0 LF, 1 CR LF, 2 any
};

}  // namespace kvocaeio::test
