/// The plain import: one class that goes through the deck twice.
#include "abaqus/naive_import.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "text/naive_input.h"

namespace kvocaeio::test {
namespace {

constexpr int kLineBound = 512;
constexpr const char* kKeywordField = ",\n\r";
constexpr const char* kParameterScan = ",= \n\r";
constexpr const char* kValueOpen = ",=\n\r";
constexpr const char* kValueClosed = "=, \n\r";
constexpr const char* kDataField = ", \n\r";

void foldToUpper(char* text) {
    for (; *text != '\0'; ++text)
        if (*text >= 'a' && *text <= 'z')
            *text = static_cast<char>(*text - 'a' + 'A');
}

std::string trimmed(const char* text) {
    std::string out = text;
    out.erase(0, out.find_first_not_of(' '));
    out.erase(out.find_last_not_of(' ') + 1);
    return out;
}

int nodeCountOf(const char* type) {
    if (const char* at = std::strstr(type, "C3D")) {
        int count = 0;
        scanInt(at + 3, count);
        return count < 0 || count > 10000 ? 0 : count;
    }
    if (std::strstr(type, "S3") || std::strstr(type, "R3"))
        return 3;
    return std::strstr(type, "S4") ? 4 : 0;
}

int geometryTypeOf(const char* type, int nodeCount) {
    if (std::strstr(type, "C3D"))
        for (const int solid : {4, 5, 6, 8, 10, 15, 20})
            if (nodeCount == solid)
                return 2;
    if (std::strstr(type, "C3D"))
        return 0;
    return std::strstr(type, "S3") || std::strstr(type, "S4") || std::strstr(type, "R3") ? 1 : 0;
}

class NaiveScanner {
  public:
    NaiveScanner(std::FILE* file, NaiveImport& out) : file_(file), out_(out) {}

    void run() {
        for (pass_ = 1; pass_ <= 2; ++pass_) {
            appendFormatted(out_.printed, "============= Loop %d ==============\n", pass_);
            std::rewind(file_);
            node_ = element_ = shell_ = surface_ = dload_ = elset_ = 0;
            drive();
            if (pass_ == 1)
                sizeTables();
        }
    }

  private:
    bool readLine() { return std::fgets(line_, kLineBound, file_) != nullptr; }
    void savePosition() { saved_ = std::ftell(file_); }
    void seekBack() { std::fseek(file_, saved_, SEEK_SET); }
    bool atKeyword() const { return line_[0] == '*' && line_[1] != '*'; }
    bool atComment() const { return line_[0] == '*' && line_[1] == '*'; }
    void say(const char* text) { out_.printed += text; }

    void drive() {
        bool more = readLine();
        while (more) {
            foldToUpper(line_);
            char copy[kLineBound];
            std::strcpy(copy, line_);
            if (const char* field = std::strtok(copy, kKeywordField)) {
                if (!readSection(trimmed(field)))
                    return;
                savePosition();
            }
            more = readLine();
        }
    }

    /// False where the pass ends early.
    bool readSection(const std::string& keyword) {
        savePosition();
        if (keyword == "*NODE")
            readNodes();
        else if (keyword == "*ELEMENT")
            readElements();
        else if (keyword == "*ELSET")
            readElset();
        else if (keyword == "*SURFACE")
            return readSurface();
        else if (keyword == "*DLOAD")
            readDload();
        else if (keyword == "*SHELL SECTION")
            return readShellSection();
        else
            while (readDataLine()) {
            }
        return true;
    }

    /// Reads to the next data line; false at a keyword, which is given back, or the end of the
    /// file.
    bool readDataLine() {
        if (dataLineRead_)
            savePosition();
        dataLineRead_ = false;
        while (readLine()) {
            if (atKeyword()) {
                seekBack();
                return false;
            }
            if (!atComment())
                return dataLineRead_ = true;
        }
        return false;
    }

    std::string parameter(const char* name, const char* valueSet) const {
        char copy[kLineBound];
        std::strcpy(copy, line_);
        for (const char* token = std::strtok(copy, kParameterScan); token != nullptr;
             token = std::strtok(nullptr, kParameterScan)) {
            if (std::strcmp(token, name) == 0) {
                const char* value = std::strtok(nullptr, valueSet);
                return value != nullptr ? value : "";
            }
        }
        return "";
    }

    void readNodes() {
        say("Reading Node Section...\n");
        int count = 0;
        while (readDataLine()) {
            if (pass_ == 2)
                parseNode();
            ++count;
            ++node_;
        }
        if (pass_ == 1)
            nodeCounts_.push_back(count);
    }

    /// " %d , %lf , %lf , %lf "
    void parseNode() {
        double* xyz = &out_.coords[3 * node_];
        if (const char* rest = scanInt(line_, out_.nodeIds[node_]))
            std::sscanf(rest, " , %lf , %lf , %lf ", &xyz[0], &xyz[1], &xyz[2]);
    }

    void readElements() {
        say("Reading Element Section...\n");
        NaiveElements block;
        block.type = parameter("TYPE", kValueOpen);
        block.nodesPerElem = nodeCountOf(block.type.c_str());
        block.geometryType = geometryTypeOf(block.type.c_str(), block.nodesPerElem);
        block.elset = parameter("ELSET", kValueOpen);
        appendFormatted(out_.printed, "  element type = %s\n", block.type.c_str());
        appendFormatted(out_.printed, "  geometry type = %d\n", block.geometryType);
        appendFormatted(out_.printed, "  node num per element = %d\n", block.nodesPerElem);
        appendFormatted(out_.printed, "  elset name = %s\n", block.elset.c_str());
        int value = 0;
        while (readDataLine()) {
            std::strcpy(intact_, line_);
            const char* token = std::strtok(line_, kDataField);
            if (token == nullptr)
                continue;
            scanInt(token, value);
            block.ids.push_back(value);
            for (int n = 0; n < block.nodesPerElem; ++n) {
                if (const char* next = nextElementToken())
                    scanInt(next, value);
                block.nodes.push_back(value);
            }
        }
        if (pass_ == 1)
            elementCounts_.push_back(static_cast<int>(block.ids.size()));
        else
            out_.elements[element_] = block;
        ++element_;
    }

    /// Null only at the end of a deck whose last line has no token: the number before it stays
    /// then.
    const char* nextElementToken() {
        const char* token = std::strtok(nullptr, kDataField);
        while (token == nullptr) {
            if (!readLine()) {
                std::strcpy(line_, intact_);
                return std::strtok(line_, kDataField);
            }
            std::strcpy(intact_, line_);
            token = std::strtok(line_, kDataField);
        }
        return token;
    }

    bool lineHasField(const char* wanted) const {
        char copy[kLineBound];
        std::strcpy(copy, line_);
        for (const char* field = std::strtok(copy, kKeywordField); field != nullptr;
             field = std::strtok(nullptr, kKeywordField))
            if (trimmed(field) == wanted)
                return true;
        return false;
    }

    void readElset() {
        say("Reading Elset Section...\n");
        if (lineHasField("INTERNAL"))
            return;
        const bool generated = lineHasField("GENERATE");
        NaiveElset set;
        set.name = parameter("ELSET", kValueClosed);
        set.parameter = generated ? "GENERATE" : "";
        while (readDataLine()) {
            foldToUpper(line_);
            if (generated)
                parseRange(set);
            else
                for (const char* token = std::strtok(line_, kDataField); token != nullptr;
                     token = std::strtok(nullptr, kDataField))
                    set.members.push_back(token);
        }
        if (pass_ == 2)
            out_.elsets[elset_] = set;
        ++elset_;
    }

    /// " %d, %d, %d "
    void parseRange(NaiveElset& set) const {
        int numbers[3];
        int count = 0;
        const char* rest = line_;
        while (count < 3 && (rest = scanInt(rest, numbers[count])) != nullptr) {
            ++count;
            if (*rest++ != ',')
                break;
        }
        if (count == 0)
            return;
        set.genStart = numbers[0];
        set.genEnd = count > 1 ? numbers[1] : numbers[0];
        set.genStep = count > 2 ? numbers[2] : 1;
    }

    bool readSurface() {
        say("Reading Surface Section...\n");
        NaiveSurface surface;
        surface.type = parameter("TYPE", kValueClosed);
        if (surface.type != "ELEMENT")
            return false;
        surface.name = parameter("NAME", kValueOpen);
        while (readDataLine()) {
            foldToUpper(line_);
            const char* item = std::strtok(line_, kDataField);
            if (item == nullptr)
                continue;
            const char* face = std::strtok(nullptr, kDataField);
            surface.items.push_back(item);
            surface.faces.push_back(face != nullptr ? face : "");
        }
        if (pass_ == 2)
            out_.surfaces[surface_] = surface;
        ++surface_;
        return true;
    }

    void readDload() {
        say("Reading Dload Section...\n");
        NaiveDload load;
        int oid = 0;
        double value = 0.0;
        while (readDataLine()) {
            const char* first = std::strtok(line_, kDataField);
            if (first == nullptr)
                continue;
            const char* label = std::strtok(nullptr, kDataField);
            const char* third = label != nullptr ? std::strtok(nullptr, kDataField) : nullptr;
            scanInt(first, oid);
            if (third != nullptr)
                std::sscanf(third, "%lf", &value);
            load.elemIDs.push_back(oid);
            load.faceIdx.push_back(label != nullptr ? label : "");
            load.values.push_back(value);
        }
        if (pass_ == 2)
            out_.dloads[dload_] = load;
        ++dload_;
    }

    bool readShellSection() {
        say("Reading Shell Section...\n");
        if (std::strstr(line_, "MATERIAL") == nullptr)
            return false;
        NaiveShellSection section;
        section.material = parameter("MATERIAL", kValueOpen);
        section.elset = parameter("ELSET", kValueOpen);
        while (readDataLine())
            std::sscanf(line_, "%lf,", &section.thickness);
        if (pass_ == 2)
            out_.shells[shell_] = section;
        ++shell_;
        return true;
    }

    void sizeTables() {
        std::string& printed = out_.printed;
        say("------- Summary ------\n");
        appendFormatted(printed, "Node Section num = %d\n", static_cast<int>(nodeCounts_.size()));
        for (std::size_t b = 0; b < nodeCounts_.size(); ++b)
            appendFormatted(printed, "  Node Block [%d] = %d\n", static_cast<int>(b),
                            nodeCounts_[b]);
        appendFormatted(printed, "Elem Section num = %d\n", static_cast<int>(element_));
        for (std::size_t b = 0; b < element_; ++b)
            appendFormatted(printed, "  Elem Block [%d] = %d\n", static_cast<int>(b),
                            elementCounts_[b]);
        appendFormatted(printed, "Shell Section num = %d\n", static_cast<int>(shell_));
        appendFormatted(printed, "Surface Section num = %d\n", static_cast<int>(surface_));
        appendFormatted(printed, "Dload Section num = %d\n", static_cast<int>(dload_));
        appendFormatted(printed, "Elset Section num = %d\n", static_cast<int>(elset_));
        out_.nodeIds.resize(node_);
        out_.coords.resize(3 * node_);
        out_.elements.resize(element_);
        out_.shells.resize(shell_);
        out_.surfaces.resize(surface_);
        out_.dloads.resize(dload_);
        out_.elsets.resize(elset_);
    }

    std::FILE* file_;
    NaiveImport& out_;
    int pass_ = 1;
    long saved_ = 0;
    bool dataLineRead_ = false;
    char line_[kLineBound] = {};
    char intact_[kLineBound] = {};  ///< the last line as it was before strtok
    std::vector<int> nodeCounts_, elementCounts_;
    std::size_t node_ = 0, element_ = 0, shell_ = 0, surface_ = 0, dload_ = 0, elset_ = 0;
};

}  // namespace

NaiveImport naiveImport(const std::string& path) {
    NaiveImport out;
    const std::string folder = naiveDebugFolder(path);
    const bool usable = std::filesystem::exists(folder);
    appendFormatted(out.printed, "debug folder state = %d\n", usable ? 0 : -1);
    const char separator = static_cast<char>(std::filesystem::path::preferred_separator);
    const std::string logLine = "log file path = " + folder + separator + "InputAbaqus.log\n";
    if (usable)
        out.printed += logLine;
    std::FILE* file = std::fopen(path.c_str(), "r+b");
    if (file == nullptr)
        return out;
    out.opened = true;
    NaiveScanner(file, out).run();
    std::fclose(file);
    if (usable) {
        out.printed += logLine;
        out.log = naiveLog(out);
    }
    return out;
}

}  // namespace kvocaeio::test
