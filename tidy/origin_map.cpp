/// Runs of numbers, and their table as a text.
#include "tidy/origin_map.h"

#include <algorithm>
#include <string>

#include "tidy/output_file.h"

namespace kvocaeio::tidy {

namespace {

// A cell without the characters that end one.
std::string cellOf(std::string_view text) {
    std::string cell(text);
    std::ranges::replace_if(
        cell, [](char c) { return static_cast<unsigned char>(c) < ' '; }, '.');
    return cell;
}

void writeMapOf(std::string_view kind, const OriginMap& map, const Origins& origins,
                OutputFile& out) {
    OriginMap::Cursor cursor;
    for (Origin origin; map.next(cursor, origin);) {
        const Source& source = origins.sources[origin.source];
        out.text(kind).text("\t").text(std::to_string(origin.id)).text("\t");
        out.text(std::to_string(origin.originalId)).text("\t");
        out.text(cellOf(source.part)).text("\t").text(cellOf(source.file)).text("\n");
    }
}

}  // namespace

bool OriginMap::next(Cursor& cursor, Origin& origin) const {
    if (cursor.run == runs_.size())
        return false;
    const Run& run = runs_[cursor.run];
    origin = run.first;
    origin.id += cursor.taken;
    origin.originalId += cursor.taken;
    if (++cursor.taken == run.count)
        cursor = {cursor.run + 1, 0};
    return true;
}

std::uint32_t Origins::sourceOf(std::string_view part, std::string_view file) {
    const auto [known, isNew] = sourceRows.try_emplace({std::string(part), std::string(file)},
                                                       static_cast<std::uint32_t>(sources.size()));
    if (isNew)
        sources.push_back({std::string(part), std::string(file)});
    return known->second;
}

void writeOrigins(const Origins& origins, OutputFile& out) {
    out.text("kind\tid\toriginal id\tpart\tfile\n");
    writeMapOf("node", origins.nodes, origins, out);
    writeMapOf("element", origins.elements, origins, out);
    writeMapOf("property", origins.properties, origins, out);
}

}  // namespace kvocaeio::tidy
