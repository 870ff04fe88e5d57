/// Texts cut to the capacity of a record's field.
#include "report/sentence.h"

#include <algorithm>

namespace kvocaeio::report {

namespace {

// Appends to a field, which keeps a place for its NUL.
class FieldWriter {
  public:
    explicit FieldWriter(std::span<char> field) : field_(field) {}
    ~FieldWriter() { field_[length_] = '\0'; }

    FieldWriter(const FieldWriter&) = delete;
    FieldWriter& operator=(const FieldWriter&) = delete;

    void add(std::string_view what) {
        for (const char character : what.substr(0, field_.size() - 1 - length_)) {
            const bool isControl = (character >= 0 && character < ' ') || character == '\x7F';
            field_[length_++] = isControl ? '.' : character;
        }
    }

  private:
    std::span<char> field_;
    std::size_t length_ = 0;
};

}  // namespace

void copyText(std::string_view what, std::span<char> field) {
    FieldWriter(field).add(what);
}

void writeSentence(const text::FindingEntry& entry, const text::FindingPlace& place,
                   std::span<char> field) {
    constexpr std::string_view kSubject = "{}";
    FieldWriter writer(field);
    const std::string_view text = entry.kind->text;
    const std::size_t subject = std::min(text.find(kSubject), text.size());
    writer.add(text.substr(0, subject));
    if (subject == text.size())
        return;
    writer.add(entry.subjectLength > 0 ? entry.subject() : place.text());
    writer.add(text.substr(subject + kSubject.size()));
}

}  // namespace kvocaeio::report
