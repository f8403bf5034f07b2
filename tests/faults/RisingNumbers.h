// Processes at one settings file: two write rising numbers, each into a section of its own, and a third one
// reads them. A number that falls back is an update that was lost, two that should be equal and are not are a
// torn read.
#pragma once

#include <cstdint>
#include <string_view>

namespace vestrel::test {

// The numbers 1 to `count`: two keys in one commit, which no reader may see apart, and between the commits
// one of changing length. 0; 1: a commit failed, 2: it was not there afterwards.
int WriteRising(std::u16string_view path, std::int32_t writer, std::int32_t count);

// Reads until both writers have come to `count`. 0; 3: a torn read, 4: an update was lost.
int ReadRising(std::u16string_view path, std::int32_t count);

// What the writer wrote last.
std::int32_t LastRising(std::u16string_view path, std::int32_t writer);

}  // namespace vestrel::test
