/// What the host asks of the system beyond the standard library; one source file per platform.
#pragma once

namespace kvocaeio::host {

/// Makes sure that the descriptors of the three standard streams are taken, so that no file which
/// is opened later gets one of them and receives what is printed.
void holdStandardStreams();

/// Whether `path` names a folder.
bool isFolder(const char* path);

/// Where text that is printed on standard output goes for a while.
enum class PrintTarget { kNowhere, kStandardError };

/// Sends standard output elsewhere and returns a token for `restoreStandardOutput`.
int redirectStandardOutput(PrintTarget target);
void restoreStandardOutput(int token);

}  // namespace kvocaeio::host
