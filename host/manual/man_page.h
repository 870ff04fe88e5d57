/// Manual pages in the language of `man`.
#pragma once

#include <string>

#include "manual/command.h"

namespace kvocaeio::host {

/// The page of the whole program, which names its commands.
std::string manPage(const CommandDescription& program, const std::string& version);

/// The page of one of its commands.
std::string manPage(const CommandDescription& program, const CommandDescription& command,
                    const std::string& version);

}  // namespace kvocaeio::host
