/// The order in which a file is opened: recognised, tidied, read, normalised.
#include <array>
#include <filesystem>
#include <system_error>
#include <utility>

#include "c/model.h"
#include "c/report.h"
#include "c/tidied_file.h"
#include "c/versioned.h"

namespace kvocaeio::c_interface {

std::unique_ptr<Content> makeContent(std::int32_t format) {
    constexpr std::array kMakers{makeAbaqusContent, makeNastranContent, makePatranContent,
                                 make3diContent, makeCadenceContent};
    return kMakers[static_cast<std::size_t>(format - KVOCAEIO_FORMAT_ABAQUS)]();
}

namespace {

kvocaeio_status takeOptions(const kvocaeio_options* options, Request& request) {
    if (options != nullptr && options->struct_size <= sizeof options->struct_size)
        return fail(KVOCAEIO_BAD_ARGUMENT, "the options are not set by kvocaeio_init_options");
    request.options = taken(options);
    if (request.options.format < KVOCAEIO_FORMAT_UNKNOWN ||
        request.options.format > KVOCAEIO_FORMAT_CADENCE)
        return fail(KVOCAEIO_BAD_ARGUMENT, "the format is none of those that are known");
    if (request.options.report != nullptr) {
        request.report = &request.options.report->content;
        request.report->clear();
        request.report->hasFailed = true;
    }
    return KVOCAEIO_OK;
}

// Reads the file that a request names, which may be a tidied one. Where that cannot be made a model
// of and nobody has listened, it is read once more for the reason.
kvocaeio_status readContent(const Request& request, std::unique_ptr<Content>& content) {
    content = makeContent(request.options.format);
    const kvocaeio_status status = content->read(request);
    if (status == KVOCAEIO_NOT_READ && request.report == nullptr) {
        report::ImportReport report;
        Request again = request;
        again.report = &report;
        again.progress = nullptr;
        content = makeContent(request.options.format);
        return content->read(again);
    }
    return status;
}

// The same of the tidied deck, whose findings are told as those of the original.
kvocaeio_status readTidied(Request request, const TidiedFile& tidied,
                           std::unique_ptr<Content>& content) {
    report::ImportReport report;
    report::ImportReport* const wanted = std::exchange(request.report, &report);
    request.path = tidied.path();
    request.isTidied = true;
    const kvocaeio_status status = readContent(request, content);
    if (wanted != nullptr)
        addTidiedReading(report, request.name, *wanted);
    return status;
}

bool isTidiable(const Request& request) {
    return request.options.tidy != 0 && (request.options.format == KVOCAEIO_FORMAT_ABAQUS ||
                                         request.options.format == KVOCAEIO_FORMAT_NASTRAN);
}

kvocaeio_status readModel(Request& request, kvocaeio_model& model) {
    kvocaeio_status status = KVOCAEIO_OK;
    if (request.options.format == KVOCAEIO_FORMAT_UNKNOWN)
        status = recogniseFile(request);
    TidiedFile tidied;
    if (status == KVOCAEIO_OK && isTidiable(request))
        status = tidied.tidy(request);
    if (status != KVOCAEIO_OK)
        return status;
    model.format = request.options.format;
    model.isTidied = !tidied.path().empty();
    if (model.isTidied) {
        model.deviation = tidied.outcome().deviation;
        model.origins = std::move(tidied.outcome().origins);
    }
    status = model.isTidied ? readTidied(request, tidied, model.content)
                            : readContent(request, model.content);
    if (status == KVOCAEIO_OK && request.options.normalise != 0 &&
        model.format == KVOCAEIO_FORMAT_ABAQUS)
        status = model.content->normalise(request.report);
    return status;
}

kvocaeio_status openModel(const char* path, const kvocaeio_options* options,
                          std::unique_ptr<kvocaeio_model>& model) {
    Request request;
    kvocaeio_status status = takeOptions(options, request);
    if (status == KVOCAEIO_OK)
        status = takePath(path, request);
    if (status != KVOCAEIO_OK)
        return status;
    Progress progress(request.options.progress, request.options.progress_user);
    if (request.options.progress != nullptr)
        request.progress = &progress;
    model = std::make_unique<kvocaeio_model>();
    status = readModel(request, *model);
    if (status == KVOCAEIO_OK && request.report != nullptr)
        request.report->hasFailed = false;
    return status;
}

}  // namespace

}  // namespace kvocaeio::c_interface

using namespace kvocaeio::c_interface;

void kvocaeio_init_options(kvocaeio_options* options, std::size_t structSize) {
    if (options == nullptr || structSize < sizeof structSize)
        return;
    std::memset(static_cast<void*>(options), 0, structSize);
    options->struct_size = structSize;
}

kvocaeio_status kvocaeio_open(const char* path, const kvocaeio_options* options,
                              kvocaeio_model** model) {
    if (model == nullptr)
        return fail(KVOCAEIO_BAD_ARGUMENT, "no place for the model is given");
    *model = nullptr;
    return guarded([&] {
        std::unique_ptr<kvocaeio_model> opened;
        const kvocaeio_status status = openModel(path, options, opened);
        if (status == KVOCAEIO_OK)
            *model = opened.release();
        return status;
    });
}

void kvocaeio_close(kvocaeio_model* model) {
    delete model;
}
