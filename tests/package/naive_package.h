/// A second, plain import of 3DI files for the tests: fgets and sscanf, one pass after the other.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace kvocaeio::test {

struct NaiveBody {
    int type = 0;
    std::string name;
    std::array<double, 3> center{};
    std::array<double, 5> size{};
    unsigned color = 0;
};

/// All that imports leave behind.
struct NaiveModel {
    double unitScale = 1.0;
    int wireCount = 0;
    int wireProfileMax = 0;
    bool hasTables = false;  ///< whether wires, wire models, colours and names were ever read
    std::vector<double> wirePoints;
    std::vector<int> wireFirstPoint;
    std::vector<int> wireProfile;
    std::vector<std::string> wireProfileNames;
    std::vector<double> wireDiameter;
    std::vector<int> wireColorId;
    std::vector<unsigned> colorTable;
    std::vector<std::string> objectNames;
    std::vector<std::string> layerNames;
    std::vector<NaiveBody> components;
    std::string profileName;
};

/// Has the queries of the reader under the same names, so that one piece of code can ask both.
class NaivePackage {
  public:
    /// Imports the file, whose line ends are plain LF.
    bool Import3DIFile(const char* path);
    void CleanMemory() { model_ = NaiveModel(); }

    int GetWireLineCount() { return model_.wireCount; }
    int GetWireProfileCount() { return model_.wireProfileMax; }
    bool GetWireProfileData(int profile, const char*& name, double& diameter, unsigned& color);
    bool GetWireLine(int wire, std::vector<double>& points, int& profile, double& diameter);
    bool GetWirePolyLine(int wire, std::vector<double>& points, int& profile, double& diameter);
    int GetComponentCount() { return static_cast<int>(model_.components.size()); }
    bool GetComponentData(int index, char* name, int& isBall, double* center, double* size,
                          unsigned& color);

  private:
    NaiveModel model_;
};

}  // namespace kvocaeio::test
