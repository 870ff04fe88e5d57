/// The exported reader: its life, the imports, paths and queries.
#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "package/model.h"
#include "text/platform.h"
#include <kvocaeio/package.h>

using kvocaeio::ChunkedList;
using kvocaeio::CKVOCadenceReaderImp;
using kvocaeio::ComponentShape;
using kvocaeio::ComponentType;
using kvocaeio::InputFile;

namespace {

// Runs an import. False without a model to fill, and where memory runs out.
template <class Import>
bool importInto(CKVOCadenceReaderImp* model, const Import& run) {
    try {
        return model != nullptr && run(*model);
    } catch (const std::bad_alloc&) {
        return false;
    }
}

template <class Char>
bool import3DIFile(CKVOCadenceReaderImp* model, const Char* path) {
    InputFile file(path);
    return importInto(model, [&](auto& to) { return file.open() && to.Import3DI(file); });
}

template <class Char>
bool importCadenceFile(CKVOCadenceReaderImp* model, const Char* path) {
    InputFile design(path);
    return importInto(model, [&](auto& to) { return to.ImportCadenceFile(design); });
}

template <class String>
void setTempPath(kvocaeio::ToolPaths<String>& paths, const String& folder) {
    using Char = typename String::value_type;
    const auto leaf = [&](std::string_view name, std::size_t number) {
        String path = folder;
        path += static_cast<Char>(kvocaeio::text::kPathSeparator);
        path.append(name.begin(), name.end());
        path += static_cast<Char>('0' + number);
        path.append({'.', 't', 'x', 't'});
        return path;
    };
    paths.temp = folder;
    for (std::size_t i = 0; i < paths.commandFiles.size(); ++i)
        paths.commandFiles[i] = leaf("CmdFile", i + 1);
    for (std::size_t i = 0; i < paths.dataFiles.size(); ++i)
        paths.dataFiles[i] = leaf("CadenceData", i + 1);
}

std::string textOf(const char* text) {
    return text == nullptr ? std::string() : std::string(text);
}

std::wstring textOf(const wchar_t* text) {
    return text == nullptr ? std::wstring() : std::wstring(text);
}

// The entry of a list that no import may have made yet.
template <class T>
const T& entryOf(const std::unique_ptr<ChunkedList<T>>& list, long long index) {
    if (list == nullptr)
        kvocaeio::throwBadSubscript();
    return list->at(index);
}

enum class WireForm { kSegments, kPolyline };

bool getWire(const CKVOCadenceReaderImp* model, WireForm form, int wire,
             std::vector<double>& points, int& profile, double& diameter) {
    if (model == nullptr || wire >= model->wireCount)
        return false;
    points.clear();
    const long long first = entryOf(model->wireFirstPoint, wire);
    const ChunkedList<double>& numbers = *model->wirePoints;
    const long long end = wire == model->wireCount - 1 ? static_cast<long long>(numbers.size() / 3)
                                                       : entryOf(model->wireFirstPoint, wire + 1LL);
    const auto append = [&](long long point) {
        for (long long i = 3 * point; i < 3 * point + 3; ++i)
            points.push_back(numbers.at(i));
    };
    const bool segments = form == WireForm::kSegments;
    for (long long point = first; point < (segments ? end - 1 : end); ++point) {
        append(point);
        if (segments)
            append(point + 1);
    }
    profile = entryOf(model->wireProfile, wire);
    diameter = entryOf(model->wireDiameter, wire);
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
    return import3DIFile(GetImp(), path);
}

bool CKVOCadenceReader::Import3DIFile(const wchar_t* path) {
    return import3DIFile(GetImp(), path);
}

bool CKVOCadenceReader::ImportCadenceFile(const char* path) {
    return importCadenceFile(GetImp(), path);
}

bool CKVOCadenceReader::ImportCadenceFile(const wchar_t* path) {
    return importCadenceFile(GetImp(), path);
}

void CKVOCadenceReader::SetExeFilePath(const char* path) {
    if (CKVOCadenceReaderImp* model = GetImp())
        model->paths.exe = textOf(path);
}

void CKVOCadenceReader::SetExeFilePath(const wchar_t* path) {
    if (CKVOCadenceReaderImp* model = GetImp())
        model->pathsW.exe = textOf(path);
}

void CKVOCadenceReader::SetTempFilePath(const char* path) {
    if (CKVOCadenceReaderImp* model = GetImp())
        setTempPath(model->paths, textOf(path));
}

void CKVOCadenceReader::SetTempFilePath(const wchar_t* path) {
    if (CKVOCadenceReaderImp* model = GetImp())
        setTempPath(model->pathsW, textOf(path));
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
    if (model == nullptr || model->wireProfileNames == nullptr)
        return false;
    model->profileNameBuffer = model->wireProfileNames->at(profile - 1LL);
    name = model->profileNameBuffer.c_str();
    if (model->wireCount < 1)
        return false;
    const ChunkedList<int>& profiles = *model->wireProfile;
    std::size_t wire = 0;
    while (wire < profiles.size() && profiles[wire] != profile)
        ++wire;
    if (wire == profiles.size())
        return false;
    diameter = entryOf(model->wireDiameter, static_cast<long long>(wire));
    // The colour is that of the wire whose index is the profile's number, whatever its own profile.
    color = model->colorTable->at(entryOf(model->wireColorId, profile));
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
    if (model == nullptr || model->components == nullptr)
        return 0;
    return static_cast<int>(model->components->size());
}

bool CKVOCadenceReader::GetComponentData(int index, char* name, int& isBall, double* const center,
                                         double* const size, unsigned int& color) {
    if (index >= GetComponentCount() || index < 0)
        return false;
    const auto body = static_cast<std::size_t>(index);
    const std::string_view text = imp->components->name(body);
    *std::ranges::copy(text, name).out = '\0';
    const ComponentShape& shape = imp->components->shape(body);
    isBall = shape.type == ComponentType::kBall ? 1 : 0;
    std::ranges::copy(shape.center, center);
    // The last two are part of the interface and of no body.
    std::fill(std::ranges::copy(shape.size, size).out, size + 5, 0.0);
    color = shape.color;
    return true;
}
