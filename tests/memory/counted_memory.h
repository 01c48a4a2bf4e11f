// What the program holds through operator new, counted by this test program's own replacement of it: the memory
// bounds of the hostile-input tests.
#pragma once

#include <cstddef>

namespace tv::test {

std::size_t heldBytes();
// The most held at any moment since the last startPeak.
std::size_t peakHeldBytes();
void startPeak();

}  // namespace tv::test
