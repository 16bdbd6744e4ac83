pragma Singleton
import QtQml
import Ambrel.Kit

// Lengths that grow with the text. A binding that asks for one follows a change of the scale.
QtObject {
    // Whole pixels, for a length that is `size` at the scale of 1.
    function px(size: real): int {
        return Math.round(size * Theme.textScale);
    }
}
