/// What the tests of both readers before, between and after imports share.
#pragma once

#include <gtest/gtest.h>
#include <new>
#include <string>

#include "patran/neutral_file.h"
#include "support/files.h"

namespace kvocaeio::test {

/// A copy that never dies, as both would release what they share.
template <class Type>
class Undying {
  public:
    explicit Undying(const Type& other) : object_(new (memory_) Type(other)) {}
    Undying() : object_(new (memory_) Type) {}
    Type& operator*() { return *object_; }

  private:
    alignas(Type) unsigned char memory_[sizeof(Type)];
    Type* object_;
};

class PatranLifecycle : public testing::Test {
  protected:
    std::string path(const std::string& name) { return folder.file(name); }

    TempFolder folder;
    /// Two nodes of the ids 1 and 2 and a bar from the second to the first.
    std::string small =
        folder.write("small.pat", summary(2, 1, 1) + property(3, 2, {2, 0.5}) + node(1, 1, 2, 3) +
                                      node(2, 4, 5, 6) + element(1, 2, 3, {2, 1}) + endOfFile());
    /// Three nodes of the ids 0 ... 2 backwards and two triangles.
    std::string larger = folder.write(
        "larger.pat", summary(3, 2) + node(2, 7, 0, 0) + node(1, 8, 0, 0) + node(0, 9, 0, 0) +
                          element(1, 3, 0, {2, 1, 0}) + element(2, 3, 9, {0, 1, 2}) + endOfFile());
};

}  // namespace kvocaeio::test
