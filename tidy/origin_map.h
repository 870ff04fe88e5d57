/// The way back from a tidy deck: which number of which file each node, element and property had.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kvocaeio::tidy {

/// Where numbers come from: an instance or part, and a file.
struct Source {
    std::string part;
    std::string file;
};

/// Where one thing comes from.
struct Origin {
    int id = 0;
    int originalId = 0;
    std::uint32_t source = 0;  ///< a row of `Origins::sources`
};

/// Origins of one kind of things, in the order of the tidy deck. What is numbered one by one in
/// both decks takes one row.
class OriginMap {
  public:
    void add(const Origin& origin) {
        if (!runs_.empty() && runs_.back().continuesWith(origin))
            ++runs_.back().count;
        else
            runs_.push_back({origin, 1});
        ++count_;
    }
    std::size_t count() const { return count_; }

    /// A place in the map; the first one is `Cursor()`.
    struct Cursor {
        std::size_t run = 0;
        int taken = 0;  ///< of that run
    };
    /// Takes the next origin. False at the end, with `origin` untouched.
    bool next(Cursor& cursor, Origin& origin) const;

  private:
    struct Run {
        Origin first;
        int count;

        bool continuesWith(const Origin& next) const {
            return next.source == first.source && next.id - count == first.id &&
                   next.originalId - count == first.originalId;
        }
    };

    std::vector<Run> runs_;
    std::size_t count_ = 0;
};

/// All origins of one deck.
struct Origins {
    OriginMap nodes;
    OriginMap elements;
    OriginMap properties;
    std::vector<Source> sources;
    std::map<std::pair<std::string, std::string>, std::uint32_t> sourceRows;

    /// The row of a source, which is added where it is new. Asked when a file or part begins, not
    /// for each thing.
    std::uint32_t sourceOf(std::string_view part, std::string_view file);
};

class OutputFile;

/// Writes all of it as a table, see kvocaeio/tidy.h.
void writeOrigins(const Origins& origins, OutputFile& out);

}  // namespace kvocaeio::tidy
