/// Files opened through the C interface, for tests in C++.
#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>

#include <kvocaeio/kvocaeio.h>

namespace kvocaeio::test {

struct CloseHandle {
    void operator()(kvocaeio_model* model) const { kvocaeio_close(model); }
    void operator()(kvocaeio_report* report) const { kvocaeio_report_destroy(report); }
};
using ModelHandle = std::unique_ptr<kvocaeio_model, CloseHandle>;
using ReportHandle = std::unique_ptr<kvocaeio_report, CloseHandle>;

inline kvocaeio_options defaultOptions() {
    kvocaeio_options options;
    kvocaeio_init_options(&options, sizeof options);
    return options;
}

inline ReportHandle makeReport() {
    kvocaeio_report* report = nullptr;
    EXPECT_EQ(kvocaeio_report_create(&report), KVOCAEIO_OK);
    return ReportHandle(report);
}

/// One call of `kvocaeio_open`, and what it has left.
struct Opened {
    explicit Opened(const std::string& path, const kvocaeio_options& options = defaultOptions()) {
        kvocaeio_model* opened = nullptr;
        status = kvocaeio_open(path.c_str(), &options, &opened);
        model.reset(opened);
    }
    kvocaeio_model* get() const { return model.get(); }

    ModelHandle model;
    kvocaeio_status status = KVOCAEIO_OK;
};

/// A table of a model that has it.
template <class Table>
Table tableOf(kvocaeio_model* model, kvocaeio_status (*get)(kvocaeio_model*, Table*)) {
    Table table{};
    table.struct_size = sizeof table;
    EXPECT_EQ(get(model, &table), KVOCAEIO_OK) << kvocaeio_error_text();
    return table;
}

}  // namespace kvocaeio::test
