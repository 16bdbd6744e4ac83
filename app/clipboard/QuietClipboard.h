#pragma once

namespace ambrel {

// Text fields of the toolkit ask the owner of the clipboard for its types at each copy, so that they know whether they
// could paste, and wait on the main thread until it answers, up to ten seconds. From here on they are not told of
// copies; they ask when the user pastes.
void keepCopiesFromTextFields();

}  // namespace ambrel
