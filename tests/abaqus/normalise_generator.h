/// Random small decks, each with the tables that its import must leave.
#pragma once

#include <string>

#include "abaqus/normalise_naive.h"

namespace kvocaeio::test {

struct RandomDeck {
    std::string text;
    RawModel model;
};

/// The same deck for the same seed on every platform.
RandomDeck randomDeck(unsigned seed);

}  // namespace kvocaeio::test
