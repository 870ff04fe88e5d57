/// The exported reader: its life, the imports, paths and queries.
#include <algorithm>
#include <cstddef>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "package/audit.h"
#include "package/reader_imp.h"
#include "package/tool_paths.h"
#include "report/import_report.h"
#include <kvocaeio/package.h>

using namespace kvocaeio;
using kvocaeio::package::CKVOCadenceReaderImp;
using kvocaeio::package::ComponentShape;
using kvocaeio::package::ComponentType;
using kvocaeio::package::InputFile;
using kvocaeio::package::Model;
using kvocaeio::report::runReported;

namespace {

using Audit = void (*)(const Model& model, report::ImportReport& report);

// Runs an import. False without a model to fill, and where memory runs out.
template <class Import>
bool importInto(CKVOCadenceReaderImp* imp, CKVOImportReport* report, Audit audit,
                const Import& run) {
    const auto import = [&](const text::Listener& listener) {
        try {
            if (imp != nullptr)
                return run(*imp, listener);
        } catch (const std::bad_alloc&) {
        }
        listener.note(text::FileFinding::kOutOfMemory, {});
        return false;
    };
    return runReported(report, import, [&](auto& filled) { audit(*imp, filled); });
}

template <class Char>
bool import3DIFile(CKVOCadenceReaderImp* imp, const Char* path, CKVOImportReport* report) {
    InputFile file(path);
    const auto import = [&](auto& to, const text::Listener& listener) {
        return file.open(listener) && to.Import3DI(file, listener);
    };
    return importInto(imp, report, package::auditPackage, import);
}

template <class Char>
bool importCadenceFile(CKVOCadenceReaderImp* imp, const Char* path, CKVOImportReport* report) {
    InputFile design(path);
    const auto import = [&](auto& to, const text::Listener& listener) {
        return to.ImportCadenceFile(design, listener);
    };
    return importInto(imp, report, package::auditBodies, import);
}

template <class Char>
std::basic_string<Char> stringOf(const Char* path) {
    return path == nullptr ? std::basic_string<Char>() : std::basic_string<Char>(path);
}

enum class WireForm { kSegments, kPolyline };

bool getWire(const Model* model, WireForm form, int wire, std::vector<double>& points, int& profile,
             double& diameter) {
    if (model == nullptr || wire >= model->wireCount)
        return false;
    points.clear();
    const long long first = model->wireFirstPoint.at(wire);
    const long long end = wire == model->wireCount - 1
                              ? static_cast<long long>(model->wirePoints.size() / 3)
                              : model->wireFirstPoint.at(wire + 1LL);
    const auto append = [&](long long point) {
        for (long long i = 3 * point; i < 3 * point + 3; ++i)
            points.push_back(model->wirePoints.at(i));
    };
    const bool segments = form == WireForm::kSegments;
    for (long long point = first; point < (segments ? end - 1 : end); ++point) {
        append(point);
        if (segments)
            append(point + 1);
    }
    profile = model->wireProfile.at(wire);
    diameter = model->wireDiameter.at(wire);
    return true;
}

}  // namespace

CKVOCadenceReader::CKVOCadenceReader() : imp(nullptr) {}

CKVOCadenceReader::CKVOCadenceReader(const CKVOCadenceReader&) = default;

CKVOCadenceReader& CKVOCadenceReader::operator=(const CKVOCadenceReader&) = default;

CKVOCadenceReader::~CKVOCadenceReader() {
    CleanMemory();
}

void CKVOCadenceReader::CleanMemory() {
    delete std::exchange(imp, nullptr);
}

CKVOCadenceReaderImp* CKVOCadenceReader::GetImp() {
    try {
        if (imp == nullptr)
            imp = new CKVOCadenceReaderImp;
    } catch (const std::bad_alloc&) {
    }
    return imp;
}

bool CKVOCadenceReader::Import3DIFile(const char* path) {
    return import3DIFile(GetImp(), path, nullptr);
}

bool CKVOCadenceReader::Import3DIFile(const char* path, CKVOImportReport* report) {
    return import3DIFile(GetImp(), path, report);
}

bool CKVOCadenceReader::Import3DIFile(const wchar_t* path) {
    return import3DIFile(GetImp(), path, nullptr);
}

bool CKVOCadenceReader::Import3DIFile(const wchar_t* path, CKVOImportReport* report) {
    return import3DIFile(GetImp(), path, report);
}

bool CKVOCadenceReader::ImportCadenceFile(const char* path) {
    return importCadenceFile(GetImp(), path, nullptr);
}

bool CKVOCadenceReader::ImportCadenceFile(const char* path, CKVOImportReport* report) {
    return importCadenceFile(GetImp(), path, report);
}

bool CKVOCadenceReader::ImportCadenceFile(const wchar_t* path) {
    return importCadenceFile(GetImp(), path, nullptr);
}

bool CKVOCadenceReader::ImportCadenceFile(const wchar_t* path, CKVOImportReport* report) {
    return importCadenceFile(GetImp(), path, report);
}

void CKVOCadenceReader::SetExeFilePath(const char* path) {
    if (CKVOCadenceReaderImp* model = GetImp())
        model->paths.exe = stringOf(path);
}

void CKVOCadenceReader::SetExeFilePath(const wchar_t* path) {
    if (CKVOCadenceReaderImp* model = GetImp())
        model->pathsW.exe = stringOf(path);
}

void CKVOCadenceReader::SetTempFilePath(const char* path) {
    if (CKVOCadenceReaderImp* model = GetImp())
        package::setTempPath(model->paths, stringOf(path));
}

void CKVOCadenceReader::SetTempFilePath(const wchar_t* path) {
    if (CKVOCadenceReaderImp* model = GetImp())
        package::setTempPath(model->pathsW, stringOf(path));
}

int CKVOCadenceReader::GetWireLineCount() {
    const CKVOCadenceReaderImp* model = GetImp();
    return model == nullptr ? 0 : model->wireCount;
}

int CKVOCadenceReader::GetWireProfileCount() {
    const CKVOCadenceReaderImp* model = GetImp();
    return model == nullptr ? 0 : model->wireProfileMax;
}

bool CKVOCadenceReader::GetWireProfileData(int profile, const char*& name, double& diameter,
                                           unsigned int& color) {
    CKVOCadenceReaderImp* model = GetImp();
    if (model == nullptr || !model->wireProfileNames)
        return false;
    model->profileNameBuffer = model->wireProfileNames->at(profile - 1LL);
    name = model->profileNameBuffer.c_str();
    if (model->wireCount < 1)
        return false;
    std::size_t wire = 0;
    while (wire < model->wireProfile.size() && model->wireProfile[wire] != profile)
        ++wire;
    if (wire == model->wireProfile.size())
        return false;
    diameter = model->wireDiameter.at(static_cast<long long>(wire));
    // The colour is that of the wire whose index is the profile's number, whatever its own profile.
    color = model->colorTable.at(model->wireColorId.at(profile));
    return true;
}

bool CKVOCadenceReader::GetWireLine(int wire, std::vector<double>& points, int& profile,
                                    double& diameter) {
    return getWire(GetImp(), WireForm::kSegments, wire, points, profile, diameter);
}

bool CKVOCadenceReader::GetWirePolyLine(int wire, std::vector<double>& points, int& profile,
                                        double& diameter) {
    return getWire(GetImp(), WireForm::kPolyline, wire, points, profile, diameter);
}

int CKVOCadenceReader::GetComponentCount() {
    const CKVOCadenceReaderImp* model = GetImp();
    return model == nullptr || !model->components ? 0 : static_cast<int>(model->components->size());
}

bool CKVOCadenceReader::GetComponentData(int index, char* name, int& isBall, double* const center,
                                         double* const size, unsigned int& color) {
    if (index >= GetComponentCount() || index < 0)
        return false;
    const auto body = static_cast<std::size_t>(index);
    *std::ranges::copy(imp->components->name(body), name).out = '\0';
    const ComponentShape& shape = imp->components->shape(body);
    isBall = shape.type == ComponentType::kBall ? 1 : 0;
    std::ranges::copy(shape.center, center);
    // The last two are part of the interface and of no body.
    std::fill(std::ranges::copy(shape.size, size).out, size + 5, 0.0);
    color = shape.color;
    return true;
}
