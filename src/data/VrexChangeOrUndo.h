#pragma once

/// Hidden: makes the second of two changes that belong together. Where it throws, `undo` takes the first one
/// back, and the exception goes on.
template <class Change, class Undo>
void changeOrUndo(const Change& change, const Undo& undo) {
    try {
        change();
    } catch (...) {
        undo();
        throw;
    }
}
