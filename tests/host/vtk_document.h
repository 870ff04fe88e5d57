/// A VTK file of arrays as raw bytes or compressed blocks of them, as far as tests look into it.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#if KVOCAEIO_HAS_ZLIB
#include <zlib.h>
#endif

namespace kvocaeio::test {

class VtkDocument {
  public:
    explicit VtkDocument(std::string bytes) : bytes_(std::move(bytes)) {
        constexpr std::string_view kBegin = "<AppendedData encoding=\"raw\">_";
        const std::size_t begin = bytes_.find(kBegin);
        if (begin == std::string::npos)
            throw std::runtime_error("no appended data");
        head_ = bytes_.substr(0, begin);
        data_ = begin + kBegin.size();
    }

    const std::string& head() const { return head_; }

    /// Whether `element` ("CellData") has an array of that name.
    bool has(const std::string& element, const std::string& name) const {
        return lineOf(element, name) != "";
    }

    /// The numbers of an array, which must be of the type that VTK calls `type`.
    template <class Number>
    std::vector<Number> array(const std::string& element, const std::string& name,
                              const std::string& type) const {
        const std::string bytes = bytesOf(element, name, type);
        std::vector<Number> numbers(bytes.size() / sizeof(Number));
        std::memcpy(numbers.data(), bytes.data(), numbers.size() * sizeof(Number));
        return numbers;
    }
    std::vector<int> ints(const std::string& element, const std::string& name) const {
        return array<std::int32_t>(element, name, "Int32");
    }
    std::vector<int> bytes(const std::string& element, const std::string& name) const {
        const auto values = array<std::uint8_t>(element, name, "UInt8");
        return {values.begin(), values.end()};
    }
    std::vector<double> doubles(const std::string& element, const std::string& name) const {
        return array<double>(element, name, "Float64");
    }
    /// The texts of an array of rows of bytes, or of strings.
    std::vector<std::string> texts(const std::string& element, const std::string& name) const {
        const std::string line = lineOf(element, name);
        const bool areStrings = attribute(line, "type") == "String";
        const std::string values = bytesOf(element, name, areStrings ? "String" : "UInt8");
        const std::string components = attribute(line, "NumberOfComponents");
        const std::size_t width = components.empty() ? 1 : std::stoul(components);
        std::vector<std::string> found;
        for (std::size_t at = 0; at < values.size();) {
            found.emplace_back(values.substr(at).c_str());
            if (!areStrings)
                found.back().resize(std::min(found.back().size(), width));
            at += areStrings ? found.back().size() + 1 : width;
        }
        return found;
    }

  private:
    std::string lineOf(const std::string& element, const std::string& name) const {
        const std::size_t begin = head_.find("<" + element + ">");
        const std::size_t end = head_.find("</" + element + ">", begin);
        const std::size_t at = head_.find(" Name=\"" + name + "\"", begin);
        if (begin == std::string::npos || at == std::string::npos || at > end)
            return "";
        const std::size_t line = head_.rfind('<', at);
        return head_.substr(line, head_.find('>', at) - line);
    }

    static std::string attribute(const std::string& line, const std::string& key) {
        const std::string begin = " " + key + "=\"";
        const std::size_t at = line.find(begin);
        if (at == std::string::npos)
            return "";
        return line.substr(at + begin.size(),
                           line.find('"', at + begin.size()) - at - begin.size());
    }

    std::string bytesOf(const std::string& element, const std::string& name,
                        const std::string& type) const {
        const std::string line = lineOf(element, name);
        if (attribute(line, "type") != type)
            throw std::runtime_error(element + " has no array " + name + " of " + type);
        const std::size_t at = data_ + std::stoul(attribute(line, "offset"));
#if KVOCAEIO_HAS_ZLIB
        if (head_.find("compressor=") != std::string::npos)
            return inflatedBytes(at);
#endif
        return bytes_.substr(at + sizeof(std::uint64_t), numberAt(at));
    }

    std::uint64_t numberAt(std::size_t at) const {
        std::uint64_t number = 0;
        std::memcpy(&number, bytes_.data() + at, sizeof number);
        return number;
    }

#if KVOCAEIO_HAS_ZLIB
    /// The blocks at `at`, after how many there are, how long they are, and the last one where it
    /// is shorter, and the compressed length of each.
    std::string inflatedBytes(std::size_t at) const {
        const std::size_t blocks = numberAt(at);
        std::size_t stream = at + 8 * (3 + blocks);
        std::string bytes;
        for (std::size_t block = 0; block < blocks; ++block) {
            const bool isShort = block + 1 == blocks && numberAt(at + 16) != 0;
            uLongf size = static_cast<uLongf>(numberAt(at + (isShort ? 16 : 8)));
            const auto length = static_cast<uLong>(numberAt(at + 8 * (3 + block)));
            std::string part(size, '\0');
            if (uncompress(reinterpret_cast<Bytef*>(part.data()), &size,
                           reinterpret_cast<const Bytef*>(bytes_.data() + stream),
                           length) != Z_OK ||
                size != part.size())
                throw std::runtime_error("a block that is not as its header says");
            bytes += part;
            stream += length;
        }
        return bytes;
    }
#endif

    std::string bytes_;
    std::string head_;
    std::size_t data_;
};

}  // namespace kvocaeio::test
