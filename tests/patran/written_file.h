/// A Patran writer and the parts of the files that it writes.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/files.h"
#include <kvocaeio/patran.h>

namespace kvocaeio::test {

inline const std::string kTitle =
    "25       0       0       1       0       0       0       0       0\n"
    "**                 Created By : Vorlan9Q-Mesh R13\n";
inline const std::string kZeros =
    "       0       0       0       0       0       0       0       0";
inline const std::string kNoNodes = kZeros + "\n";
inline const std::string kLastCardOfANode = kZeros + "       0\n";
inline const std::string kEnd = "99       0       0       1       0       0       0       080\n\n";
inline const std::string kOrigin = "    0.000000E+00    0.000000E+00    0.000000E+00\n";

class PatranWriter : public testing::Test {
  protected:
    /// Takes the path and the two counts and makes the arrays.
    void begin(int nodes, int elements) {
        writer.SetFilePath(path.c_str());
        writer.SetNodeCount(nodes);
        writer.SetNodeArray();
        writer.SetElemCount(elements);
        EXPECT_TRUE(writer.SetElemArray());
    }
    void addElement(int index, std::vector<int> nodes) {
        writer.AddElement(index, static_cast<int>(nodes.size()), nodes.data());
    }
    std::string written() {
        EXPECT_TRUE(writer.WriteFile());
        return readText(path);
    }
    /// The file of one node, not set, and the element cards.
    static std::string oneNode(const std::string& elementCards) {
        return kTitle + "26       0       0       1       1       1       0       1       1\n\n" +
               " 1       1       0       2       1       1       0       181\n" + kOrigin +
               kLastCardOfANode + elementCards + kEnd;
    }

    TempFolder folder;
    std::string path = folder.file("mesh.pat");
    CKVO_PATWriter_Bridge writer;
};

}  // namespace kvocaeio::test
