#pragma once

namespace ambrel {

// At each copy Qt's text fields ask the clipboard's owner for its types, to know whether they can paste, and block the
// main thread for up to ten seconds. After this call they ask only when the user pastes.
void keepCopiesFromTextFields();

}  // namespace ambrel
