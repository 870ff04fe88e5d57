/// Both readers of neutral files once more, as plainly as they can be written: one `sscanf` per
/// card, one read per line, growing lists. Slow, without a thought for hostile counts.
#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "patran/naive_cards.h"

namespace kvocaeio::test {

/// Node ids to indices; what is outside of 0 ... highest is ignored and gives 0.
class NaiveIdMap {
  public:
    explicit NaiveIdMap(int highest = -1) : highest_(highest) {}
    void set(int id, int index) {
        if (id >= 0 && id <= highest_)
            indices_[id] = index;
    }
    int at(int id) const {
        const auto found = indices_.find(id);
        return found == indices_.end() ? 0 : found->second;
    }

  private:
    int highest_;
    std::map<int, int> indices_;
};

/// The plain `CKVO_PatranIO_Bridge`.
class NaivePatranIO {
  public:
    void import(std::string_view file);

    int GetNodeCount() const { return static_cast<int>(nodes_.size()); }
    int GetElementCount() const { return static_cast<int>(elements_.size()); }
    void GetNodeCoordinate(int index, float* x, float* y, float* z) const;
    void GetElementDataBase(int index, int* node1, int* node2, int* node3, int* node4, int* type,
                            double* valueA, double* valueB, double* valueC) const;

  private:
    static int findMaxNodeId(NaiveFile& file);
    void readNode(NaiveFile& file, char* line);
    void readElement(NaiveFile& file, char* line, int shape);
    void readProperty(NaiveFile& file, char* line, NaiveHeader& card);

    std::vector<std::array<float, 3>> nodes_;
    std::vector<std::array<int, 4>> elements_;
    std::vector<int> elementPropertyIds_;
    std::vector<int> propertyTypes_;
    std::vector<int> elementShapes_;
    std::vector<double> propertyValueA_, propertyValueB_, propertyValueC_;
    int propertyCount_ = 0, nodeCount_ = 0, elementCount_ = 0;
};

/// The plain `CPatranReader`.
class NaivePatranReader {
  public:
    void import(std::string_view file);

    int GetNodeCout() const { return nodeCount_; }
    int GetElemCount() const { return elemCount_; }
    int GetPropertyCount() const { return propertyCount_; }
    bool GetNode(int index, float& x, float& y, float& z) const;
    bool GetElement(int index, int& type, int& property, int* nodes) const;
    void GetVertex(float (*vertices)[3], int count) const;
    void GetElemType(int* types, int count) const;
    void GetElemNode(int (*nodes)[8], int count) const;

    /// What all imports so far have printed.
    const std::string& printed() const { return printed_; }

  private:
    int nodeDimension(NaiveFile file);
    void readPackets(NaiveFile file, NaiveIdMap& map);
    void makeArrays();
    /// Whether a row is the one that the arrays have beyond the count.
    bool isSpare(int row, int count) const { return arraysMade_ && row == (count > 0 ? count : 0); }

    std::vector<std::array<float, 3>> vertices_;
    std::vector<std::array<int, 8>> elemNodes_;
    std::vector<int> elemTypes_, elemProperties_;
    bool arraysMade_ = false;
    int nodeCount_ = 0, elemCount_ = 0, propertyCount_ = 0;
    std::string printed_;
};

}  // namespace kvocaeio::test
