/// The import of a Cadence design, and the parts of it that stand by themselves.
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>

#include "package/input_file.h"
#include "package/model.h"
#include "text/findings.h"

namespace kvocaeio::package {

/// Runs the extraction tool over a design, unless no tool was set, and reads its reports. Throws as
/// `readReports` does.
bool importCadence(InputFile& design, Model& model, const text::Listener& listener = {});

/// The paths in the form that the system knows any file by.
using NativeToolPaths = ToolPaths<std::filesystem::path::string_type>;

/// The same with all paths in that form.
bool importCadence(const std::filesystem::path& design, const NativeToolPaths& paths, Model& model,
                   const text::Listener& listener);

/// False where a command file cannot be opened.
bool writeCommandFiles(const ToolPaths<std::string>& paths, const text::Listener& listener = {});

/// Makes new tables and fills them. False where the first or second report gives false; the third
/// may, unless the listener has stopped the import.
bool readReportFiles(InputFile& symbols, InputFile& layers, InputFile& dieStack,
                     const text::Listener& listener, std::optional<ReportTables>& tables);

/// Replaces the bodies by those of the reports, as the kind of design asks for. False where the
/// kind is unknown or a report lacks a column. Throws as the readings of the reports do.
bool readReports(const ReportTables& tables, const text::Listener& listener, double unitScale,
                 std::optional<ComponentList>& components);

}  // namespace kvocaeio::package
