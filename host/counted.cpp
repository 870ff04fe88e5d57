/// The singular of the nouns that meshes are described with.
#include "counted.h"

namespace kvocaeio::host {

namespace {

std::string singularOf(std::string_view plural) {
    if (const std::size_t of = plural.find(" of "); of != plural.npos)
        return singularOf(plural.substr(0, of)).append(plural.substr(of));
    const auto with = [&](std::size_t cut, std::string_view ending) {
        return std::string(plural.substr(0, plural.size() - cut)).append(ending);
    };
    if (plural.ends_with("hedra"))
        return with(1, "on");
    if (plural.ends_with("ies") && plural != "dies")
        return with(3, "y");
    return plural.ends_with("s") ? with(1, "") : std::string(plural);
}

}  // namespace

std::string counted(std::size_t number, std::string_view plural) {
    return std::to_string(number) + " " + (number == 1 ? singularOf(plural) : std::string(plural));
}

}  // namespace kvocaeio::host
