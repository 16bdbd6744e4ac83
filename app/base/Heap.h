#pragma once
// How the program's heap gives memory back. A bar runs for weeks; what a moment's work has freed must not stay with it.

namespace ambrel {

// Large blocks always go back to the system as soon as they are freed. By default the C library learns from the first
// decoded picture to keep blocks of that size for good, once for each thread.
void returnLargeBlocks();

// Gives back what a great many small blocks have left behind. Takes a few milliseconds, in any thread.
void returnFreedMemory();

}  // namespace ambrel
