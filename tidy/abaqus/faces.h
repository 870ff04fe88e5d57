/// The faces that surfaces and loads of a deck mean, as the new deck will name them.
#pragma once

#include <array>
#include <cstddef>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tidy/abaqus/frames.h"
#include "tidy/abaqus/sets.h"

namespace kvocaeio::tidy::abaqus {

constexpr std::size_t kMostFaces = 6;

/// Lines of a surface, and elements whose faces need a set of their own.
struct PlannedSurface {
    struct Line {
        int instance;
        std::string set;  ///< as it is looked up there
        int face;
    };
    std::string name;
    std::vector<Line> lines;
    std::array<std::vector<Member>, kMostFaces> elements;  ///< by face
};

struct PlannedLoad {
    Member element;
    int face;
    double value;
};

/// All of a deck.
struct PlannedFaces {
    std::vector<PlannedSurface> surfaces;
    std::vector<PlannedLoad> loads;
    /// Sets that surfaces need though no `*ELSET` block names them.
    std::set<std::pair<int, std::string>> sets;
};

/// Finds the faces, and tells what has to be changed for the reader to find them, too.
PlannedFaces planFaces(const Model& model, const Frames& frames, DeckLines& lines);

}  // namespace kvocaeio::tidy::abaqus
