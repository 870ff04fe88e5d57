/// The sink of the second pass: stores what the first one counted.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "abaqus/element_type.h"
#include "abaqus/model.h"

namespace kvocaeio {

/// Writes into tables that are sized already. A deck can change between the passes; whatever has no
/// place in the tables then is not stored, while the scanner goes on as if it were.
class DeckStore {
  public:
    explicit DeckStore(AbaqusModel& model) : model_(model) {}

    // What the scanner calls. The bool results say whether all values of the line could be read;
    // where not, those that could not keep what stood there before.

    void beginNodes() {}
    bool addNode(std::string_view line);
    void beginElements(std::string_view typeName, std::string_view elset, ElementType type);
    /// Takes up to `wanted` tokens of the element in hand from the line: the OID first, then its
    /// nodes. Gives the number taken.
    std::size_t addElementTokens(std::string_view line, std::size_t wanted);
    void repeatLastNumber(std::size_t count);
    void endElement();
    void beginElset(std::string_view name, bool generated);
    bool addMembers(std::string_view line);
    bool setRange(std::string_view line);
    void beginSurface(std::string_view type, std::string_view name);
    bool addSurfaceItem(std::string_view line);
    void beginDload();
    bool addLoad(std::string_view line);
    void beginShellSection(std::string_view material, std::string_view elset);
    bool setThickness(std::string_view line);

  private:
    void storeElementNumber();

    AbaqusModel& model_;
    std::string folded_;
    std::size_t nodeRow_ = 0;

    // The element section in hand, and where the next node of its element in hand goes. One number
    // serves the whole section: a token that is none leaves it as it is.
    ElemSection* elements_ = nullptr;
    std::size_t elementSections_ = 0;
    std::size_t elementRow_ = 0;
    bool oidTaken_ = false;
    int* nextNode_ = nullptr;
    int* behindNodes_ = nullptr;
    int elementNumber_ = 0;

    // The other sections in hand; each null where the tables have none left.
    ElsetSection* elset_ = nullptr;
    std::size_t elsets_ = 0;
    SurfaceSection* surface_ = nullptr;
    std::size_t surfaces_ = 0;
    DloadSection* dload_ = nullptr;
    std::size_t dloads_ = 0;
    int loadElement_ = 0;
    double loadValue_ = 0.0;
    ShellSection* shellSection_ = nullptr;
    std::size_t shellSections_ = 0;
    double thickness_ = 0.0;
};

}  // namespace kvocaeio
