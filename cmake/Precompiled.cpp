// A library needs a source; this one has headers alone.
