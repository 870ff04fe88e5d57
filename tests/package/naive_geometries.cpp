/// The plain import's pass over the geometries.
#include <cmath>

#include "package/naive_pass.h"

namespace kvocaeio::test {
namespace {

int findEntry(const std::vector<std::string>& names, const char* key) {
    for (std::size_t i = 0; i < names.size(); ++i)
        if (names[i] == key)
            return static_cast<int>(i);
    return -1;
}

class NaiveGeometries {
  public:
    explicit NaiveGeometries(NaiveModel& model)
        : model_(model),
          symbolIndex_(findEntry(model.objectNames, "SYMBOL")),
          ballIndex_(findEntry(model.objectNames, "BALL")),
          outlineIndex_(findEntry(model.layerNames, "OUTLINE")),
          capIndex_(findEntry(model.layerNames, "PACKAGE CAP")) {}

    bool canRead() const { return symbolIndex_ != -1 && outlineIndex_ != -1; }

    void take(const NaivePass& pass) {
        if (pass.holds("GEOMETRIES"))
            return;
        if (state_ == 0) {
            if (pass.holds("GEOM")) {
                startBlock(-1e10);
                state_ = 1;
            }
        } else if (state_ == 1) {
            takeHead(pass);
        } else {
            takeRow(pass);
            if (pointsRead_ == pointsExpected_ && state_ == 2)
                finish(0);
        }
    }

  private:
    void startBlock(double maximum) {
        name_.clear();
        objectId_ = layerId_ = colorId_ = -1;
        pointsExpected_ = pointsRead_ = 0;
        xMin_ = yMin_ = zMin_ = 1e10;
        xMax_ = yMax_ = zMax_ = maximum;
    }

    void takeHead(const NaivePass& pass) {
        NaiveFields fields(pass.line);
        std::string first;
        if (pass.holds("NAME")) {
            std::string second;
            if (fields.word(first) && fields.word(second))
                name_ = second;
        } else if (pass.holds("OBJECT")) {
            takeInteger(fields, objectId_);
        } else if (pass.holds("LAYER")) {
            takeInteger(fields, layerId_);
        } else if (pass.holds("COLOR")) {
            takeInteger(fields, colorId_);
        } else if (pass.holds("EXTR")) {
            int dropped = 0;
            double low = 0.0, high = 0.0;
            if (fields.word(first) && fields.integer(dropped) && fields.real(low) &&
                fields.real(high)) {
                zMin_ = low;
                zMax_ = high;
            }
        } else if (pass.holds("BARL")) {
            takeBall(fields);
        } else if (pass.holds("2DPG")) {
            int count = 0;
            if (takeInteger(fields, count)) {
                const bool wanted = objectId_ == symbolIndex_ || objectId_ == ballIndex_ ||
                                    layerId_ == outlineIndex_ || layerId_ == capIndex_;
                if (wanted)
                    pointsExpected_ = count;
                state_ = wanted ? 2 : 0;
            }
        } else if (pass.holds("####")) {
            finish(0);
        } else if (pass.holds("GEOM")) {
            finish(1);
        }
    }

    static bool takeInteger(NaiveFields& fields, int& value) {
        std::string first;
        return fields.word(first) && fields.integer(value);
    }

    void takeBall(NaiveFields& fields) {
        std::string first;
        double x = 0.0, y = 0.0, z = 0.0, r = 0.0, dropped = 0.0, h = 0.0;
        int droppedToo = 0;
        if (!fields.word(first) || !fields.real(x) || !fields.real(y) || !fields.real(z) ||
            !fields.real(r) || !fields.real(dropped) || !fields.real(h) ||
            !fields.integer(droppedToo))
            return;
        ballX_ = x;
        ballY_ = y;
        ballRadius_ = r;
        ballZ_ = z - (r - std::sqrt(r * r - h * h));
    }

    void takeRow(const NaivePass& pass) {
        double numbers[20];
        const int count = pass.numbers(numbers);
        if (count % 2 == 0 && pointsRead_ < pointsExpected_) {
            for (int i = 0; i < count; i += 2) {
                const double x = numbers[i], y = numbers[i + 1];
                if (!(x > xMin_))
                    xMin_ = x;
                if (!(x < xMax_))
                    xMax_ = x;
                if (!(y > yMin_))
                    yMin_ = y;
                if (!(y < yMax_))
                    yMax_ = y;
                ++pointsRead_;
            }
        } else if (pointsRead_ > pointsExpected_) {
            state_ = 0;
        }
    }

    void finish(int nextState) {
        record_.type = 0;
        record_.name.clear();
        if (objectId_ == symbolIndex_) {
            setName();
            const bool interposer = name_.find("INTERPOSER") != std::string::npos;
            const bool spacer = name_.find("SPACER") != std::string::npos;
            record_.type = interposer ? 3 : spacer ? 4 : 2;
            setBox();
        } else if (objectId_ == ballIndex_) {
            setName();
            record_.type = 5;
            record_.center = {ballX_, ballY_, ballZ_};
            record_.size[0] = ballRadius_ * 2.0;
            record_.color = entry(model_.colorTable, colorId_);
        }
        if (layerId_ == outlineIndex_) {
            record_.name = "SUBSTRATE";
            record_.type = 1;
            setBox();
            record_.size[2] = 2.0 * record_.center[2];
        } else if (layerId_ == capIndex_) {
            record_.name = "PACKAGECAP";
            record_.type = 6;
            setBox();
        }
        if (record_.type != 0) {
            for (double& value : record_.center)
                value *= model_.unitScale;
            for (double& value : record_.size)
                value *= model_.unitScale;
            model_.components.push_back(record_);
        }
        state_ = nextState;
        startBlock(0.0);
    }

    void setName() {
        if (name_.empty())
            name_ = entry(model_.layerNames, layerId_);
        record_.name = name_;
    }

    void setBox() {
        record_.center = {(xMin_ + xMax_) * 0.5, (yMin_ + yMax_) * 0.5, (zMin_ + zMax_) * 0.5};
        record_.size[0] = xMax_ - xMin_;
        record_.size[1] = yMax_ - yMin_;
        record_.size[2] = zMax_ - zMin_;
        record_.color = entry(model_.colorTable, colorId_);
    }

    NaiveModel& model_;
    const int symbolIndex_, ballIndex_, outlineIndex_, capIndex_;
    int state_ = 0;
    std::string name_;
    int objectId_ = -1, layerId_ = -1, colorId_ = -1;
    int pointsExpected_ = 0, pointsRead_ = 0;
    double xMin_ = 0.0, yMin_ = 0.0, zMin_ = 0.0, xMax_ = 0.0, yMax_ = 0.0, zMax_ = 0.0;
    double ballX_ = 0.0, ballY_ = 0.0, ballZ_ = 0.0, ballRadius_ = 0.0;
    NaiveBody record_;  // one for the whole pass: what a body does not set stays from another
};

}  // namespace

bool naiveGeometries(const char* path, NaiveModel& model) {
    model.components.clear();
    NaiveGeometries geometries(model);
    if (!geometries.canRead())
        return false;
    NaivePass pass(path);
    while (pass.next())
        geometries.take(pass);
    return true;
}

}  // namespace kvocaeio::test
