/// Scripts by which shells complete the words of a command line.
#pragma once

#include <string>

#include "manual/command.h"

namespace kvocaeio::host {

std::string bashCompletion(const CommandDescription& program);
std::string zshCompletion(const CommandDescription& program);
std::string fishCompletion(const CommandDescription& program);

}  // namespace kvocaeio::host
