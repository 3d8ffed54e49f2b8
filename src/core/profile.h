// profile.h: what differs from machine to machine outside the tables of codes.

#pragma once

#include "core/shared_state.h"

#include <string>
#include <string_view>

struct Profile {
    MachineKind Machine;
    std::string_view Name;
    /// Lines that the control holds, the end code included.
    int MaxLines;
    /// End-of-program code that saving adds: letter and digits.
    std::string_view EndLetter, EndDigits;
    /// Digits of an X cell behind its sign or letter.
    size_t XDigits;
    /// The blanks of the cells 3 to 7 of a line without that parameter; "" where the machine has none.
    std::string_view BlankX, BlankY, BlankZ, BlankF, BlankH;
    /// Column widths in twips.
    int WidthN, WidthX, WidthY, WidthH;
    /// Correction of the window's width in AutoWidth, in twips.
    int WidthCorrection;
};

const Profile& ProfileOf(MachineKind machine);
/// The profile of Shared.Machine.
const Profile& ActiveProfile();

/// The machine of a name in any case; false (and no change) when there is none of that name.
bool MachineOfName(std::string_view name, MachineKind& machine);

/// The highest line count allowed now: one less than the control holds as long as no end code was
/// seen, because saving adds one.
int MaxLines();
