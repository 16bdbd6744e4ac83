#pragma once
// How the program gives memory back. A bar runs for weeks; what a moment's work has needed must not stay with it.

namespace ambrel {

// Large blocks always go back to the system as soon as they are freed. By default the C library learns from the first
// decoded picture to keep blocks of that size for good, once for each thread. All other threads share one heap beside
// the main one: each of their own would keep a few megabytes of what it freed.
void returnLargeBlocks();

// Gives back what a great many small blocks have left behind. Takes a few milliseconds, in any thread.
void returnFreedMemory();

// Unmaps the code and constants of the program and its libraries; what still runs comes back from the page cache, 64
// KiB at a time. Two thirds of what a start maps are never used again. Does nothing under a debugger, whose breakpoints
// are in that code. In any thread.
void returnUnusedCode();

}  // namespace ambrel
