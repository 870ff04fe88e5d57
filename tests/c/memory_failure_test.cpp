/// Memory that cannot be allocated, at every single allocation of what the C interface does.
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "c/opened.h"
#include "c/tetrahedron.h"
#include "support/failing_memory.h"
#include "support/files.h"

namespace kvocaeio::test {
namespace {

constexpr const char* kDeck =
    "*NODE\n1,0,0,0\n2,1,0,0\n3,0,1,0\n4,0,0,1\n"
    "*ELEMENT,TYPE=C3D4,ELSET=A_NAME_THAT_IS_LONG_ENOUGH\n1,1,2,3,4\n"
    "*ELEMENT,TYPE=S3\n2,1,2,3\n3,2,3,4\n*ELSET,ELSET=B\n1,2\n"
    "*SURFACE,TYPE=ELEMENT,NAME=TOP\nB,S1\n*SHELL SECTION,ELSET=B,MATERIAL=M\n1.\n*DLOAD\n"
    "1,P1,2.\n";

constexpr const char* kBulkData =
    "GRID,11,,0.,0.,0.\nGRID,12,,1.,0.,0.\nGRID,13,,0.,1.,0.\nGRID,14,,0.,0.,1.\n"
    "CTETRA,21,1,11,12,13,14\nPSOLID,1,1\nENDDATA\n";

constexpr const char* kNeutral =
    "26       0       0       1       1       1       1       0       0\n\n"
    " 1      10       0       2       0       0       0       0       0\n"
    "             0.0             0.0             0.0\n\n"
    " 2       7       2       2       0       0       0       0       0\n"
    "       2       0       1       0     0.0     0.0     0.0\n"
    "      10      10\n"
    " 4       1       1       1       2       0       0       0       0\n"
    "             1.0             2.0\n"
    "99       0       0       1       0       0       0       0       0\n";

constexpr const char* kPackage =
    "3DI MM\nTABLE COLOR\n1 255 0 0 0\nTABLE OBJECT\n1 SYMBOL\n2 BALL\nTABLE LAYER\n1 OUTLINE\n"
    "TABLE END\nWIRE_MODELS\nWIRE_MODEL 1\nAU25\n";

// Asks for all that a model of any format may have.
kvocaeio_status walk(kvocaeio_model* model) {
    kvocaeio_status worst = KVOCAEIO_OK;
    const auto take = [&](kvocaeio_status status) {
        worst = status == KVOCAEIO_OUT_OF_MEMORY ? status : worst;
        return status == KVOCAEIO_OK;
    };
    take(kvocaeio_normalise(model, nullptr));
    for (int name = KVOCAEIO_SECTIONS; name <= KVOCAEIO_NORMALISED_SHELLS; ++name) {
        std::size_t sections = 0;
        take(kvocaeio_get_section_count(model, name, &sections));
        const std::int32_t* nodes = nullptr;
        for (std::size_t i = 0; i < sections; ++i)
            for (const int numbering : {KVOCAEIO_OIDS, KVOCAEIO_ROWS})
                take(kvocaeio_get_connectivity(model, name, i, numbering, &nodes));
    }
    kvocaeio_origins origins{};
    origins.struct_size = sizeof origins;
    take(kvocaeio_get_origins(model, KVOCAEIO_NODES, &origins));
    return worst;
}

// Calls `step()` with ever more allocations granted until it is done; each time before, it must say
// that memory ran out, and keep nothing.
template <class Step>
int failuresOf(const Step& step) {
    static_cast<void>(step());  // what is allocated once for good, the error of the thread with it
    int allocations = 0;
    for (bool done = false; !done; ++allocations) {
        const long before = outstanding;
        const kvocaeio_status status = withAllocations(allocations, step);
        done = status == KVOCAEIO_OK;
        EXPECT_EQ(outstanding, before) << "after " << allocations << " allocations";
        if (testing::Test::HasFailure() || allocations > 100'000)
            break;
    }
    return allocations;
}

// Temporary files go to a folder of the test's own, as long as this lives.
class TemporaryFilesIn {
  public:
    explicit TemporaryFilesIn(const std::string& folder) { set(folder); }
    ~TemporaryFilesIn() { set(before_); }
    TemporaryFilesIn(const TemporaryFilesIn&) = delete;
    TemporaryFilesIn& operator=(const TemporaryFilesIn&) = delete;

  private:
    static void set(const std::string& folder) {
#if defined(_WIN32)
        _putenv_s("TMP", folder.c_str());
#else
        setenv("TMPDIR", folder.c_str(), 1);
#endif
    }

    const std::string before_ = std::filesystem::temp_directory_path().string();
};

class CMemoryFailure : public testing::Test {
  protected:
    // A file that is opened, asked for everything, and closed. Where it does not open, the reason
    // need not be memory: what cannot be opened or made is a reason, too.
    kvocaeio_status use(const std::string& path, kvocaeio_options options) {
        kvocaeio_model* model = nullptr;
        kvocaeio_status status = kvocaeio_open(path.c_str(), &options, &model);
        EXPECT_EQ(model == nullptr, status != KVOCAEIO_OK);
        if (status == KVOCAEIO_OK)
            status = walk(model);
        kvocaeio_close(model);
        return status;
    }

    // Findings stay until an import begins.
    void emptyReport() {
        kvocaeio_options options = defaultOptions();
        options.report = report.get();
        kvocaeio_model* none = nullptr;
        EXPECT_EQ(kvocaeio_open(nullptr, &options, &none), KVOCAEIO_BAD_ARGUMENT);
    }

    TempFolder folder;
    const ReportHandle report = makeReport();
};

TEST_F(CMemoryFailure, OfAFileThatOpensLeaksNothing) {
    folder.makeFolder("temporary");
    const TemporaryFilesIn temporary(folder.file("temporary"));
    const std::vector<std::string> paths = {
        folder.write("deck.inp", kDeck), folder.write("deck.bdf", kBulkData),
        folder.write("file.pat", kNeutral), folder.write("file.3di", kPackage)};
    for (const std::string& path : paths)
        for (const bool isTidied : {false, true}) {
            SCOPED_TRACE(path);
            kvocaeio_options options = defaultOptions();
            options.tidy = isTidied ? 1 : 0;
            options.property_values = 1;
            options.report = isTidied ? report.get() : nullptr;
            if (path.ends_with(".bdf") && !isTidied)
                continue;  // no deck for the reader as it is
            const auto step = [&] {
                const kvocaeio_status status = use(path, options);
                emptyReport();
                return status;
            };
            EXPECT_GT(failuresOf(step), 10);
        }
    EXPECT_TRUE(std::filesystem::is_empty(folder.file("temporary")));
}

TEST_F(CMemoryFailure, OfAMeshThatIsWrittenLeaksNothing) {
    const Tetrahedron tetrahedron;
    const std::string path = folder.file("file");
    for (const std::int32_t format : {KVOCAEIO_FORMAT_NASTRAN, KVOCAEIO_FORMAT_PATRAN})
        EXPECT_GT(
            failuresOf([&] { return kvocaeio_write(path.c_str(), format, &tetrahedron.mesh); }), 5);
}

TEST_F(CMemoryFailure, OfAReportLeavesNone) {
    EXPECT_GT(failuresOf([&] {
                  kvocaeio_report* made = nullptr;
                  const kvocaeio_status status = kvocaeio_report_create(&made);
                  EXPECT_EQ(made == nullptr, status != KVOCAEIO_OK);
                  kvocaeio_report_destroy(made);
                  return status;
              }),
              1);
}

}  // namespace
}  // namespace kvocaeio::test
