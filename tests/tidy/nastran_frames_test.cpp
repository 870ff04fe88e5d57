#include <cmath>
#include <gtest/gtest.h>

#include "tidy/nastran/frames.h"

namespace {

using kvocaeio::tidy::nastran::Frame;
using kvocaeio::tidy::nastran::FrameTable;
using kvocaeio::tidy::nastran::Point;

void expectNear(const Point& point, const Point& meant) {
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_NEAR(point[i], meant[i], 1e-12);
}

// Origin at (1, 2, 3), z along the basic x, x along the basic y, and so y along the basic z.
constexpr std::array<Point, 3> kTurned{{{1, 2, 3}, {2, 2, 3}, {1, 5, 3}}};

TEST(TidyNastranFrames, ARectangularOne) {
    FrameTable frames;
    frames.addByPoints(5, 'R', 0, kTurned);
    ASSERT_NE(frames.find(5), nullptr);
    expectNear(frames.find(5)->basic({10, 20, 30}), {31, 12, 23});
}

TEST(TidyNastranFrames, ACylindricalOne) {
    FrameTable frames;
    frames.addByPoints(5, 'C', 0, {{{0, 0, 0}, {0, 0, 1}, {1, 0, 0}}});
    expectNear(frames.find(5)->basic({2, 90, 7}), {0, 2, 7});
    EXPECT_EQ(frames.find(5)->basic({2, 90, 7}), (Point{0, 2, 7}));
    expectNear(frames.find(5)->basic({2, 30, 7}), {std::sqrt(3.0), 1, 7});
    EXPECT_EQ(frames.find(5)->basic({2, -90, 7}), (Point{0, -2, 7}));
}

TEST(TidyNastranFrames, ASphericalOneHasTheAngleFromItsAxisFirst) {
    FrameTable frames;
    frames.addByPoints(5, 'S', 0, {{{0, 0, 0}, {0, 0, 1}, {1, 0, 0}}});
    EXPECT_EQ(frames.find(5)->basic({2, 0, 50}), (Point{0, 0, 2}));
    EXPECT_EQ(frames.find(5)->basic({2, 90, 90}), (Point{0, 2, 0}));
    expectNear(frames.find(5)->basic({2, 30, 180}), {-1, 0, std::sqrt(3.0)});
}

TEST(TidyNastranFrames, ChainsInAnyOrder) {
    FrameTable frames;
    frames.addByPoints(7, 'R', 6, kTurned);
    frames.addByPoints(6, 'R', 5, kTurned);
    frames.addByPoints(5, 'R', 0, kTurned);
    const Point inFive = frames.find(7)->basic({0, 0, 0});
    expectNear(inFive, frames.find(5)->basic(Frame{*frames.find(5)}.basic({1, 2, 3})));
}

TEST(TidyNastranFrames, ByGridPointsThatStandInOtherFrames) {
    FrameTable frames;
    frames.addByGrids(8, 'R', {1, 2, 3});
    frames.addByPoints(5, 'R', 0, kTurned);
    EXPECT_TRUE(frames.needsGrid(2));
    EXPECT_FALSE(frames.needsGrid(4));
    frames.addGrid(1, 5, {0, 0, 0});  // (1, 2, 3)
    frames.addGrid(2, 5, {0, 0, 1});  // (2, 2, 3)
    frames.addGrid(3, 0, {1, 5, 3});
    expectNear(frames.find(8)->basic({10, 20, 30}), {31, 12, 23});
}

TEST(TidyNastranFrames, WhatHasNoAxes) {
    FrameTable frames;
    frames.addByPoints(1, 'R', 0, {{{0, 0, 0}, {0, 0, 1}, {0, 0, 2}}});
    frames.addByPoints(2, 'R', 0, {});
    frames.addByPoints(3, 'R', 4, kTurned);
    frames.addByPoints(4, 'R', 3, kTurned);
    frames.addByPoints(5, 'R', 99, kTurned);
    frames.addByGrids(6, 'R', {1, 2, 3});
    for (int number = 1; number <= 6; ++number) {
        EXPECT_TRUE(frames.holds(number));
        EXPECT_EQ(frames.find(number), nullptr) << number;
    }
    EXPECT_FALSE(frames.holds(99));
    EXPECT_EQ(frames.find(99), nullptr);
    EXPECT_NE(frames.find(0), nullptr);
}

TEST(TidyNastranFrames, AChainMayBeLong) {
    FrameTable frames;
    constexpr int kLength = 200'000;
    for (int number = 1; number <= kLength; ++number)
        frames.addByPoints(number, 'R', number - 1, {{{0, 0, 1}, {0, 0, 2}, {1, 0, 1}}});
    ASSERT_NE(frames.find(kLength), nullptr);
    EXPECT_EQ(frames.find(kLength)->origin, (Point{0, 0, kLength}));
}

}  // namespace
