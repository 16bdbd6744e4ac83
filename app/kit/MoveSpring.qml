import Ambrel.Kit

// How a thing that was moved or let go comes to its place.
SpringValue {
    isInstant: Theme.reducedMotion
    response: 0.32
    damping: 0.82
}
