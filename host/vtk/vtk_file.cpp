/// The head of a file, and what is behind it.
#include "vtk/vtk_file.h"

#include <algorithm>
#include <bit>
#include <stdexcept>

#include "file_report.h"
#include "vtk/deflate.h"

namespace kvocaeio::host {

namespace {

// The head tells where the arrays lie, so it is written last, into room that is kept for it.
constexpr std::size_t kHeadRoom = std::size_t{16} * 1024;

// What is compressed at a time.
constexpr std::size_t kBlockBytes = std::size_t{64} * 1024;

constexpr std::string_view kByteOrder =
    std::endian::native == std::endian::little ? "LittleEndian" : "BigEndian";

[[noreturn]] void throwCannotWrite() {
    throw FileError("cannot be written as a whole: the disk may be full", "cannot-be-written");
}

}  // namespace

VtkFile::VtkFile(const std::string& path, std::string_view dataSet, bool compress)
    : file_(openFile(path, "wb")), compress_(compress) {
    if (!file_)
        throw FileError("cannot be written: " + systemFailure(), "cannot-be-written");
    const std::string room(kHeadRoom, ' ');
    write(room.data(), room.size());
    offset_ = 0;
    open("VTKFile", " type=\"" + std::string(dataSet) + "\" version=\"1.0\" byte_order=\"" +
                        std::string(kByteOrder) + "\" header_type=\"UInt64\"" +
                        (compress ? " compressor=\"vtkZLibDataCompressor\"" : ""));
    lines_.clear();  // it ends after the arrays
    open(dataSet);
}

void VtkFile::addLine(const std::string& line) {
    lines_.push_back(std::string(2 * open_.size(), ' ') + line + '\n');
}

void VtkFile::open(std::string_view element, const std::string& attributes) {
    addLine("</" + std::string(element) + ">");
    open_.emplace_back(element, attributes);
}

void VtkFile::close() {
    const auto [element, attributes] = open_.back();
    open_.pop_back();
    addLine("<" + element + attributes + ">");
}

void VtkFile::begin(std::string_view element, std::string_view name, std::string_view type,
                    std::size_t size, std::size_t components, std::size_t bytes) {
    std::string line = "<" + std::string(element);
    const auto attribute = [&](std::string_view key, std::string_view value) {
        line.append(" ").append(key).append("=\"").append(value).append("\"");
    };
    attribute("type", type);
    attribute("Name", name);
    if (components != 1)
        attribute("NumberOfComponents", std::to_string(components));
    if (open_.back().first == "FieldData")
        attribute("NumberOfTuples", std::to_string(size / components));
    attribute("format", "appended");
    attribute("offset", std::to_string(offset_));
    addLine(line + "/>");
    if (compress_)
        return beginBlocks(bytes);
    const std::uint64_t length = bytes;
    write(&length, sizeof length);
}

void VtkFile::appendBytes(const void* bytes, std::size_t size) {
    if (!compress_)
        return write(bytes, size);
    const char* next = static_cast<const char*>(bytes);
    while (size != 0) {
        const std::size_t taken = std::min(size, kBlockBytes - block_.size());
        block_.append(next, taken);
        next += taken;
        size -= taken;
        left_ -= taken;
        if (block_.size() == kBlockBytes || left_ == 0)
            writeBlock();
    }
}

// The compressed sizes of an array's blocks stand before these, and are written after them into
// room that is kept for it.
void VtkFile::beginBlocks(std::size_t bytes) {
    left_ = bytes;
    blockTable_ = {(bytes + kBlockBytes - 1) / kBlockBytes, kBlockBytes, bytes % kBlockBytes};
    std::fgetpos(file_.get(), &tablePlace_);
    auto room = blockTable_;
    room.resize(room.size() + blockTable_[0]);
    write(room.data(), room.size() * sizeof room[0]);
}

void VtkFile::writeBlock() {
    const std::string stream = deflated(block_);
    block_.clear();
    write(stream.data(), stream.size());
    blockTable_.push_back(stream.size());
    if (left_ != 0)
        return;
    std::fpos_t end{};
    std::fgetpos(file_.get(), &end);
    std::fsetpos(file_.get(), &tablePlace_);
    std::fwrite(blockTable_.data(), sizeof blockTable_[0], blockTable_.size(), file_.get());
    std::fsetpos(file_.get(), &end);
}

void VtkFile::strings(std::string_view name, std::span<const std::string> texts) {
    std::string bytes;
    for (const std::string& text : texts)
        bytes.append(text.c_str()).push_back('\0');  // up to a zero of its own
    begin("Array", name, "String", texts.size(), 1, bytes.size());
    appendBytes(bytes.data(), bytes.size());
}

void VtkFile::byteRows(std::string_view name, std::span<const std::string> texts) {
    std::size_t width = 1;
    for (const std::string& text : texts)
        width = std::max(width, text.size());
    std::vector<std::uint8_t> bytes(width * texts.size());
    std::uint8_t* row = bytes.data();
    for (const std::string& text : texts) {
        std::copy(text.begin(), text.end(), row);
        row += width;
    }
    array(name, std::span<const std::uint8_t>(bytes), width);
}

void VtkFile::write(const void* bytes, std::size_t size) {
    std::fwrite(bytes, 1, size, file_.get());
    offset_ += size;
}

void VtkFile::finish() {
    constexpr std::string_view kEnd = "\n  </AppendedData>\n</VTKFile>\n";
    write(kEnd.data(), kEnd.size());
    while (!open_.empty())
        close();
    addLine("<?xml version=\"1.0\"?>");
    std::string head;
    for (auto line = lines_.rbegin(); line != lines_.rend(); ++line)
        head += *line;
    const std::string data = "  <AppendedData encoding=\"raw\">_";
    if (head.size() + data.size() >= kHeadRoom)
        throw std::length_error("the head of a VTK file is longer than its room");
    head.append(kHeadRoom - head.size() - data.size() - 1, ' ').append("\n").append(data);
    std::fseek(file_.get(), 0, SEEK_SET);  // rewind would forget that a write has failed
    write(head.data(), head.size());
    if (std::ferror(file_.get()) != 0 || std::fclose(file_.release()) != 0)
        throwCannotWrite();
}

}  // namespace kvocaeio::host
