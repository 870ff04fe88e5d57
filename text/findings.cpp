/// Findings folded by kind and subject.
#include "text/findings.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <limits>
#include <new>
#include <utility>

namespace kvocaeio::text {

const std::array<FindingKind, 6> kFileFindingKinds{{
    {"file.cannot-open", Severity::kError, "the file cannot be opened: {}",
     "The system refuses the file. What is not a regular file (a folder, a pipe, a device) is "
     "refused as well, and so is an Abaqus deck that may not be written to.",
     "Check the path and the permissions of the file"},
    {"file.read-error", Severity::kError, "the system cannot read on: {}",
     "A read fails in the middle of the file, as on a damaged disk or a lost network drive. The "
     "reader takes that for the end of the file.",
     "Copy the file to a local disk and import the copy"},
    {"file.out-of-memory", Severity::kError, "the tables of this file cannot be allocated",
     "The import ends with false when memory runs out.",
     "Close other programs, or check the largest number in the file: tables are as long as that"},
    {"file.changed", Severity::kError, "the file cannot be read a second time: {}",
     "The readers go through a file several times. The import ends with false where the file "
     "cannot be started anew.",
     "Import the file when no other program writes to it"},
    {"report.incomplete", Severity::kError, "memory ran out: this report is not complete",
     "The tables were filled, but there was no memory left to look over them.",
     "Close other programs and import the file again"},
    {"file.end-mark", Severity::kError,
     "a byte 1A ends the file after this line: what follows is not read",
     "Text files of old systems end with that byte, so the rest counts as rubbish, on every "
     "platform alike.",
     "Remove the byte if the rest belongs to the file"},
}};

namespace {

std::size_t hashOf(const FindingKind& kind, std::string_view subject) {
    std::size_t hash = std::hash<const void*>()(&kind);
    for (const char character : subject)
        hash = (hash ^ static_cast<unsigned char>(character)) * 1099511628211U;
    return hash ^ hash >> 17;
}

}  // namespace

void FindingPlace::setText(std::string_view what) noexcept {
    what = what.substr(0, what.find_last_not_of("\r\n") + 1);
    length = static_cast<std::uint8_t>(what.copy(characters.data(), kMostText));
}

void Findings::beginFile(std::string_view path) noexcept {
    path = path.substr(0, kMostPath);
    for (std::size_t row = 0; row < fileCount_; ++row)
        if (file(row) == path) {
            file_ = static_cast<std::uint8_t>(row);
            return;
        }
    if (fileCount_ == kMostFiles)
        return;
    files_[fileCount_].reset(new (std::nothrow) Path{});
    if (files_[fileCount_] == nullptr)
        return;
    path.copy(files_[fileCount_]->data(), kMostPath);
    file_ = static_cast<std::uint8_t>(fileCount_++);
}

std::string_view Findings::file(std::size_t row) const {
    return row < fileCount_ ? std::string_view(files_[row]->data()) : std::string_view();
}

FindingPlace* Findings::count(const FindingKind& kind, std::string_view subject) noexcept {
    FindingEntry* const entry = find(kind, subject.substr(0, FindingEntry::kMostSubject));
    if (entry == nullptr) {
        ++lostCount_;
        const FindingKind& incomplete = rowOf(FileFinding::kReportIncomplete);
        if (&kind != &incomplete)
            note(incomplete, 0, 0, {});
        return nullptr;
    }
    ++entry->count;
    const bool hasPlace = entry->placeCount < FindingEntry::kMostPlaces;
    if (kind.severity == Severity::kError) {
        lastError_ = entry;
        lastErrorPlace_ = entry->placeCount - (hasPlace ? 0U : 1U);
    }
    if (!hasPlace)
        return nullptr;
    FindingPlace& place = entry->first[entry->placeCount++];
    place = {};
    place.file = file_;
    return &place;
}

void Findings::countMore(const FindingKind& kind, std::string_view subject,
                         std::size_t more) noexcept {
    if (FindingEntry* const entry = find(kind, subject))
        entry->count += more;
}

void Findings::note(const FindingKind& kind, std::size_t line, std::size_t column,
                    std::string_view what, std::string_view subject) noexcept {
    FindingPlace* const place = count(kind, subject);
    if (place == nullptr)
        return;
    place->line = line;
    place->column = static_cast<std::uint32_t>(
        std::min<std::size_t>(column, std::numeric_limits<std::uint32_t>::max()));
    place->setText(what);
}

FindingEntry* Findings::find(const FindingKind& kind, std::string_view subject) noexcept {
    std::size_t slot = hashOf(kind, subject) % kSlots;
    for (; slots_[slot] != 0; slot = (slot + 1) % kSlots) {
        FindingEntry& entry = *entries_[slots_[slot] - 1U];
        if (entry.kind == &kind && entry.subject() == subject)
            return &entry;
    }
    const auto subjects =
        static_cast<std::size_t>(std::count_if(entries_.begin(), entries_.begin() + entryCount_,
                                               [&](const auto& e) { return e->kind == &kind; }));
    // The last entries are kept for kinds that have none yet.
    const bool isFull =
        subjects >= kMostSubjects || (subjects > 0 && entryCount_ >= kMostEntries / 2);
    if (isFull && subject != kOtherSubjects)
        return find(kind, kOtherSubjects);
    return add(kind, subject, slot);
}

FindingEntry* Findings::add(const FindingKind& kind, std::string_view subject,
                            std::size_t slot) noexcept {
    if (entryCount_ == kMostEntries)
        return nullptr;
    auto& entry = entries_[entryCount_];
    entry.reset(new (std::nothrow) FindingEntry);
    if (entry == nullptr && kind.severity == Severity::kError)
        entry = std::move(spare_);
    if (entry == nullptr)
        return nullptr;
    entry->kind = &kind;
    entry->subjectLength = static_cast<std::uint8_t>(
        subject.copy(entry->subjectText.data(), FindingEntry::kMostSubject));
    slots_[slot] = static_cast<std::uint16_t>(++entryCount_);
    return entry.get();
}

std::size_t Findings::countOf(const FindingKind& kind) const {
    std::size_t sum = 0;
    for (std::size_t row = 0; row < entryCount_; ++row)
        sum += entries_[row]->kind == &kind ? entries_[row]->count : 0;
    return sum;
}

void Findings::clear() noexcept {
    if (spare_ == nullptr) {
        spare_ = std::move(entries_[entryCount_ - 1]);
        *spare_ = FindingEntry();
    }
    std::fill_n(entries_.begin(), entryCount_, nullptr);
    slots_.fill(0);
    std::fill_n(files_.begin(), fileCount_, nullptr);
    entryCount_ = fileCount_ = lostCount_ = 0;
    file_ = 0;
    lastError_ = nullptr;
}

}  // namespace kvocaeio::text
