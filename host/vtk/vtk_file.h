/// Files in VTK's XML format, with their arrays as raw bytes at the end.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "c_file.h"

namespace kvocaeio::host {

/// VTK's names of number types.
template <class Number>
inline constexpr std::string_view kVtkType = "";
template <>
inline constexpr std::string_view kVtkType<std::uint8_t> = "UInt8";
template <>
inline constexpr std::string_view kVtkType<std::int32_t> = "Int32";
template <>
inline constexpr std::string_view kVtkType<std::int64_t> = "Int64";
template <>
inline constexpr std::string_view kVtkType<double> = "Float64";

/// The document is made from its end to its beginning: what is opened or added first stands last.
/// So the arrays lie in the reverse order of the elements that tell their places. A reader that
/// changes those places to others, one by one, and looks for each by its number, cannot mistake one
/// that it has changed for one that it looks for, since it meets the latter first.
///
/// Nothing tells whether a call could write, but `finish`.
class VtkFile {
  public:
    /// Begins a file of one data set ("UnstructuredGrid"), with arrays compressed where `compress`.
    VtkFile(const std::string& path, std::string_view dataSet, bool compress);

    /// `attributes` as they stand in the file, with a blank before each.
    void open(std::string_view element, const std::string& attributes = "");
    /// Ends the element that was opened last, at its beginning.
    void close();

    /// An array of a whole table, `components` to a tuple.
    template <class Number>
    void array(std::string_view name, std::span<const Number> numbers, std::size_t components = 1) {
        beginArray<Number>(name, numbers.size(), components);
        append(numbers);
    }
    /// Begins an array whose `size` numbers `append` brings, in parts.
    template <class Number>
    void beginArray(std::string_view name, std::size_t size, std::size_t components = 1) {
        begin("DataArray", name, kVtkType<Number>, size, components, size * sizeof(Number));
    }
    template <class Number>
    void append(std::span<const Number> numbers) {
        appendBytes(numbers.data(), numbers.size_bytes());
    }
    /// Appends `number` as often as `times`.
    template <class Number>
    void append(Number number, std::size_t times) {
        const std::vector<Number> block(std::min(times, std::size_t{16} * 1024), number);
        for (; times > block.size(); times -= block.size())
            append(std::span<const Number>(block));
        append(std::span<const Number>(block).first(times));
    }
    /// An array of texts, which VTK has as strings.
    void strings(std::string_view name, std::span<const std::string> texts);
    /// An array of texts as rows of bytes, filled up with zeros to the longest: for readers that
    /// know nothing but numbers.
    void byteRows(std::string_view name, std::span<const std::string> texts);

    /// Ends the file. Throws `FileError` where not all of it could be written.
    void finish();

  private:
    void begin(std::string_view element, std::string_view name, std::string_view type,
               std::size_t size, std::size_t components, std::size_t bytes);
    void appendBytes(const void* bytes, std::size_t size);
    void beginBlocks(std::size_t bytes);
    void writeBlock();
    void write(const void* bytes, std::size_t size);
    void addLine(const std::string& line);

    CFile file_;
    std::vector<std::string> lines_;                         // of the head, the last one first
    std::vector<std::pair<std::string, std::string>> open_;  // with attributes
    std::uint64_t offset_ = 0;                               // of the next byte, behind the head

    bool compress_;
    // Of the array that is being compressed:
    std::string block_;                      // bytes that are not compressed yet
    std::size_t left_ = 0;                   // bytes of the array behind those
    std::vector<std::uint64_t> blockTable_;  // how many, how long, a shorter last one; streams
    std::fpos_t tablePlace_{};
};

}  // namespace kvocaeio::host
