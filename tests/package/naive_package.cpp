/// The plain import's queries, and the passes over units, tables and wires.
#include "package/naive_package.h"

#include <algorithm>
#include <climits>
#include <cstring>

#include "package/naive_pass.h"

namespace kvocaeio::test {
namespace {

struct NaiveUnit {
    const char* word;
    double scale;
};
constexpr NaiveUnit kUnits[] = {{"MM", 1.0},        {"MILLIMETERS", 1.0}, {"UM", 0.001},
                                {"MICRONS", 0.001}, {"NM", 0.000001},     {"NANOMETERS", 0.000001},
                                {"INCH", 25.4},     {"INCHS", 25.4}};

bool readUnits(const char* path, double& unitScale) {
    NaivePass pass(path);
    while (pass.next())
        if (pass.holds("3DI"))
            for (const NaiveUnit& unit : kUnits)
                if (pass.holds(unit.word)) {
                    unitScale = unit.scale;
                    return true;
                }
    return true;
}

/// A table row by row; both kinds of table are read alike.
template <class Value>
class NaiveTable {
  public:
    void open() {
        isOpen_ = true;
        ids_.clear();
        values_.clear();
    }
    void close() { isOpen_ = false; }
    bool isOpen() const { return isOpen_; }
    int maxId() const { return maxId_; }
    void addRow(int id, const Value& value) {
        if (id < 0 || id >= 16777216)
            return;  // passed over
        ids_.push_back(id);
        values_.push_back(value);
        maxId_ = std::max(maxId_, id);
    }
    std::vector<Value> entries() const {
        std::vector<Value> out(std::max(static_cast<std::size_t>(maxId_), ids_.size()) + 1);
        for (std::size_t row = 0; row < ids_.size(); ++row)
            out[static_cast<std::size_t>(ids_[row])] = values_[row];
        return out;
    }

  private:
    bool isOpen_ = false;
    std::vector<int> ids_;
    std::vector<Value> values_;
    int maxId_ = 0;
};

bool readRow(const std::string& line, int& id, unsigned& color) {
    NaiveFields fields(line);
    int c1 = 0, c2 = 0, c3 = 0, dropped = 0;
    if (!fields.integer(id) || !fields.integer(c1) || !fields.integer(c2) || !fields.integer(c3) ||
        !fields.integer(dropped))
        return false;
    color = static_cast<unsigned>(c3) << 16 | static_cast<unsigned>(c2) << 8 |
            static_cast<unsigned>(c1);
    return true;
}

bool readRow(const std::string& line, int& id, std::string& content) {
    NaiveFields fields(line);
    if (!fields.integer(id) || !fields.word(content))
        return false;
    std::string word;
    for (int further = 0; further < 4 && fields.word(word); ++further)
        content += " " + word;
    return true;
}

template <class Value>
void readTable(const char* path, const char* keyword, std::vector<Value>& entries) {
    NaiveTable<Value> table;
    NaivePass pass(path);
    while (pass.next()) {
        if (!table.isOpen()) {
            std::string first, second;
            NaiveFields fields(pass.line);
            if (pass.holds("TABLE") && fields.word(first) && fields.word(second) &&
                matches(second, keyword))
                table.open();
            continue;
        }
        if (pass.holds("TABLE")) {
            table.close();
            continue;
        }
        int id = 0;
        Value value{};
        if (readRow(pass.line, id, value))
            table.addRow(id, value);
        else if (table.maxId() > 0)
            break;
    }
    entries = table.entries();
}

void readWireModels(const char* path, std::vector<std::string>& names) {
    int state = 0;
    NaivePass pass(path);
    while (pass.next()) {
        if (state == 0) {
            if (pass.holds("WIRE_MODELS"))
                state = 1;
        } else if (state == 1) {
            int number = 0;
            if (pass.holds("WIRE_MODEL") && pass.wordAndInteger("WIRE_MODEL", number))
                state = 2;
        } else {
            NaiveFields fields(pass.line);
            std::string name, word;
            double real = 0.0;
            int integer = 0;
            if (fields.word(name) && fields.real(real) && fields.integer(integer) &&
                fields.word(word))
                names.push_back(name);
            state = 1;
        }
    }
}

class NaiveWires {
  public:
    explicit NaiveWires(NaiveModel& model) : model_(model) {}

    void take(const NaivePass& pass) {
        switch (state_) {
            case 0:
                if (pass.holds("COLOR") && pass.wordAndInteger("COLOR", colorId_))
                    state_ = 1;
                break;
            case 1:
                if (pass.holds("WIRE_MODEL"))
                    goOnOrRestart(pass.wordAndInteger("WIRE_MODEL", profile_));
                break;
            case 2:
                if (pass.holds("WIRE"))
                    goOnOrRestart(takeDiameter(pass));
                break;
            case 3:
                goOnOrRestart(pass.holds("3DPL") && pass.wordAndInteger("3DPL", pointsExpected_));
                pointsRead_ = 0;
                points_.clear();
                break;
            case 4:
                takeRow(pass);
                break;
            default:
                store();
                restart();
        }
    }

  private:
    void restart() { state_ = pointsExpected_ = pointsRead_ = 0; }
    void goOnOrRestart(bool goOn) {
        if (goOn)
            ++state_;
        else
            restart();
    }
    bool takeDiameter(const NaivePass& pass) {
        NaiveFields fields(pass.line);
        std::string word;
        double diameter = 0.0;
        int dropped = 0;
        if (!fields.word(word) || !fields.real(diameter) || !fields.integer(dropped) ||
            !matches(word, "WIRE"))
            return false;
        diameter_ = diameter * model_.unitScale;
        return true;
    }
    void takeRow(const NaivePass& pass) {
        double numbers[30];
        const int count = pass.numbers(numbers);
        if (count % 3 == 0 && pointsRead_ < pointsExpected_) {
            for (int i = 0; i < count; ++i)
                points_.push_back(numbers[i] * model_.unitScale);
            pointsRead_ += count / 3;
        } else if (pointsRead_ == pointsExpected_) {
            state_ = 5;
        } else {
            restart();
        }
    }
    void store() {
        model_.wireFirstPoint.push_back(static_cast<int>(model_.wirePoints.size() / 3));
        model_.wirePoints.insert(model_.wirePoints.end(), points_.begin(), points_.end());
        model_.wireProfile.push_back(profile_);
        model_.wireDiameter.push_back(diameter_);
        model_.wireColorId.push_back(colorId_);
        ++model_.wireCount;
        model_.wireProfileMax = std::max(model_.wireProfileMax, profile_);
    }

    NaiveModel& model_;
    int state_ = 0;
    int colorId_ = 0, profile_ = 0;
    double diameter_ = 0.0;
    int pointsExpected_ = 0, pointsRead_ = 0;
    std::vector<double> points_;
};

void readWires(const char* path, NaiveModel& model) {
    NaiveWires wires(model);
    NaivePass pass(path);
    while (pass.next())
        wires.take(pass);
}

}  // namespace

bool NaivePackage::Import3DIFile(const char* path) {
    NaiveModel& m = model_;
    m.hasTables = true;
    m.wirePoints.clear();
    m.wireFirstPoint.clear();
    m.wireProfile.clear();
    m.wireProfileNames.clear();
    m.wireDiameter.clear();
    m.wireColorId.clear();
    m.colorTable.clear();
    m.objectNames.clear();
    m.layerNames.clear();
    readUnits(path, m.unitScale);
    readTable(path, "COLOR", m.colorTable);
    readTable(path, "OBJECT", m.objectNames);
    readTable(path, "LAYER", m.layerNames);
    if (!naiveGeometries(path, m))
        return false;
    readWireModels(path, m.wireProfileNames);
    readWires(path, m);
    return true;
}

bool NaivePackage::GetWireProfileData(int profile, const char*& name, double& diameter,
                                      unsigned& color) {
    if (!model_.hasTables)
        return false;
    model_.profileName = entry(model_.wireProfileNames, profile - 1LL);
    name = model_.profileName.c_str();
    if (model_.wireCount < 1)
        return false;
    for (std::size_t wire = 0; wire < model_.wireProfile.size(); ++wire)
        if (model_.wireProfile[wire] == profile) {
            diameter = model_.wireDiameter[wire];
            color = entry(model_.colorTable, entry(model_.wireColorId, profile));
            return true;
        }
    return false;
}

bool NaivePackage::GetWirePolyLine(int wire, std::vector<double>& points, int& profile,
                                   double& diameter) {
    if (wire >= model_.wireCount)
        return false;
    points.clear();
    const int first = entry(model_.wireFirstPoint, wire);
    const int last = wire == model_.wireCount - 1 ? static_cast<int>(model_.wirePoints.size() / 3)
                                                  : entry(model_.wireFirstPoint, wire + 1);
    for (int i = 3 * first; i < 3 * last; ++i)
        points.push_back(entry(model_.wirePoints, i));
    profile = entry(model_.wireProfile, wire);
    diameter = entry(model_.wireDiameter, wire);
    return true;
}

bool NaivePackage::GetWireLine(int wire, std::vector<double>& points, int& profile,
                               double& diameter) {
    if (wire >= model_.wireCount)
        return false;
    points.clear();
    std::vector<double> polyline;
    GetWirePolyLine(wire, polyline, profile, diameter);
    for (std::size_t at = 0; at + 6 <= polyline.size(); at += 3)
        for (std::size_t i = at; i < at + 6; ++i)
            points.push_back(polyline[i]);
    return true;
}

bool NaivePackage::GetComponentData(int index, char* name, int& isBall, double* center,
                                    double* size, unsigned& color) {
    if (index < 0 || index >= GetComponentCount())
        return false;
    const NaiveBody& body = model_.components[static_cast<std::size_t>(index)];
    std::strcpy(name, body.name.c_str());
    isBall = body.type == 5 ? 1 : 0;
    std::copy(body.center.begin(), body.center.end(), center);
    std::copy(body.size.begin(), body.size.end(), size);
    color = body.color;
    return true;
}

}  // namespace kvocaeio::test
