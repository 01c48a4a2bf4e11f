// What the program holds through operator new, counted by this test program's own replacement of it.
#pragma once

#include <cstddef>

namespace tv::test {

// Starts the peak afresh at what is held now, and answers that.
std::size_t startPeak();
// The most held at any moment since the last startPeak.
std::size_t peakHeldBytes();

}  // namespace tv::test
