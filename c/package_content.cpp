/// A chip package as a model: bodies and wires as arrays, made of the lists of the import.
#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "c/content.h"
#include "c/host_path.h"
#include "package/audit.h"
#include "package/import_3di.h"
#include "package/import_cadence.h"
#include "package/model.h"

namespace kvocaeio::c_interface {

namespace {

using package::ChunkedList;
using package::ComponentType;
using package::Model;

static_assert(static_cast<int>(ComponentType::kSubstrate) == KVOCAEIO_BODY_SUBSTRATE &&
              static_cast<int>(ComponentType::kBall) == KVOCAEIO_BODY_BALL &&
              static_cast<int>(ComponentType::kCap) == KVOCAEIO_BODY_CAP);

// Texts end to end, each with a NUL after it, and pointers to them.
class TextTable {
  public:
    void add(std::string_view text) {
        starts_.push_back(characters_.size());
        characters_.append(text).push_back('\0');
    }
    /// Once all are there.
    const char* const* pointers() {
        pointers_.reserve(starts_.size());
        for (const std::size_t start : starts_)
            pointers_.push_back(characters_.data() + start);
        starts_ = {};
        return pointers_.data();
    }

  private:
    std::string characters_;
    std::vector<std::size_t> starts_;
    std::vector<const char*> pointers_;
};

template <class Value>
std::vector<Value> arrayOf(ChunkedList<Value>& list) {
    std::vector<Value> array;
    array.reserve(list.size());
    for (std::size_t i = 0; i < list.size(); ++i)
        array.push_back(list[i]);
    list.clear();
    return array;
}

class Bodies {
  public:
    void take(const package::ComponentList& bodies) {
        const std::size_t count = bodies.size();
        types_.reserve(count);
        centers_.reserve(count);
        sizes_.reserve(count);
        colors_.reserve(count);
        for (std::size_t i = 0; i < count; ++i) {
            const package::ComponentShape& shape = bodies.shape(i);
            names_.add(bodies.name(i));
            types_.push_back(static_cast<int>(shape.type));
            centers_.push_back(shape.center);
            sizes_.push_back(shape.size);
            colors_.push_back(shape.color);
        }
        tables.count = count;
        tables.names = names_.pointers();
        tables.types = types_.data();
        tables.centers = count == 0 ? nullptr : centers_.front().data();
        tables.sizes = count == 0 ? nullptr : sizes_.front().data();
        tables.colors = colors_.data();
    }

    kvocaeio_bodies tables{};

  private:
    TextTable names_;
    std::vector<int> types_;
    std::vector<std::array<double, 3>> centers_;
    std::vector<std::array<double, 3>> sizes_;
    std::vector<std::uint32_t> colors_;
};

class Wires {
  public:
    void take(Model& model) {
        const std::size_t count = model.wireFirstPoint.size();
        points_ = arrayOf(model.wirePoints);
        profiles_ = arrayOf(model.wireProfile);
        diameters_ = arrayOf(model.wireDiameter);
        firstPoints_.reserve(count + 1);
        colors_.reserve(count);
        for (std::size_t i = 0; i < count; ++i) {
            firstPoints_.push_back(model.wireFirstPoint[i]);
            const int color = model.wireColorId[i];
            colors_.push_back(model.colorTable.reaches(color) ? model.colorTable.at(color) : 0);
        }
        firstPoints_.push_back(static_cast<std::int64_t>(points_.size() / 3));
        if (model.wireProfileNames)
            takeProfiles(*model.wireProfileNames);
        tables.count = count;
        tables.first_points = firstPoints_.data();
        tables.point_count = points_.size() / 3;
        tables.points = points_.data();
        tables.profiles = profiles_.data();
        tables.diameters = diameters_.data();
        tables.colors = colors_.data();
    }

    kvocaeio_wires tables{};

  private:
    void takeProfiles(const ChunkedList<std::string>& names) {
        for (std::size_t i = 0; i < names.size(); ++i)
            profileNames_.add(names[i]);
        tables.profile_count = names.size();
        tables.profile_names = profileNames_.pointers();
    }

    std::vector<std::int64_t> firstPoints_;
    std::vector<double> points_;
    std::vector<int> profiles_;
    std::vector<double> diameters_;
    std::vector<std::uint32_t> colors_;
    TextTable profileNames_;
};

class PackageContent : public Content {
  public:
    const kvocaeio_bodies* bodies() override { return &bodies_.tables; }
    const kvocaeio_wires* wires() override { return &wires_.tables; }

  protected:
    // Runs `import(model)`, looks over what it has read by `audit`, and takes it.
    template <class Import, class Audit>
    kvocaeio_status run(const Request& request, const char* failure, const Import& import,
                        const Audit& audit) {
        const auto model = std::make_unique<Model>();
        try {
            if (!import(*model))
                return failImport(request, KVOCAEIO_NOT_READ, failure);
        } catch (const std::bad_alloc&) {
            request.listener().note(text::FileFinding::kOutOfMemory, {});
            return failImport(request, KVOCAEIO_OUT_OF_MEMORY, "memory ran out");
        } catch (const std::out_of_range&) {
            return failImport(request, KVOCAEIO_NOT_READ, failure);
        }
        auditFor(request, [&](auto& report) { audit(*model, report); });
        if (model->components)
            bodies_.take(*model->components);
        wires_.take(*model);
        return KVOCAEIO_OK;
    }

  private:
    Bodies bodies_;
    Wires wires_;
};

class Content3di final : public PackageContent {
  public:
    kvocaeio_status read(const Request& request) override {
        kvocaeio_status status = KVOCAEIO_OK;
        if (openRequested(request, status) == nullptr)
            return status;
        expectPasses(request, request.report == nullptr ? 7 : 8);
        package::InputFile file(request.path.c_str());
        return run(
            request, "the file refers to colours, layers or objects that it does not have",
            [&](Model& model) { return package::import3di(file, model, request.listener()); },
            package::auditPackage);
    }
};

class CadenceContent final : public PackageContent {
  public:
    kvocaeio_status read(const Request& request) override {
        const kvocaeio_options& options = request.options;
        if (options.tool != nullptr && options.tool_folder == nullptr)
            return fail(KVOCAEIO_BAD_ARGUMENT, "the tool has no folder for its files");
        package::NativeToolPaths paths;
        std::filesystem::path folder = request.path;
        if (options.tool != nullptr) {
            paths.exe = pathOf(options.tool).native();
            folder = pathOf(options.tool_folder);
        }
        package::setTempPath(paths, folder.native());
        return run(
            request, "no reports of a design that can be used are in the folder",
            [&](Model& model) {
                return package::importCadence(request.path, paths, model, request.listener());
            },
            package::auditBodies);
    }
};

}  // namespace

std::unique_ptr<Content> make3diContent() {
    return std::make_unique<Content3di>();
}

std::unique_ptr<Content> makeCadenceContent() {
    return std::make_unique<CadenceContent>();
}

}  // namespace kvocaeio::c_interface
