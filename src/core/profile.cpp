#include "core/profile.h"

#include "core/text.h"

SharedState Shared;

namespace {

// In the order of MachineKind.
constexpr Profile Profiles[] = {
    {MachineKind::MK2, "MK2", 160, "G", "22", 4, "     ", "", "      ", "    ", "", 600, 706, 0, 0, 495},
    {MachineKind::MK4, "MK4", 210, "M", "30", 4, "     ", "", "      ", "    ", "   ", 495, 706, 0, 495, 0},
    {MachineKind::F1, "F1", 210, "M", "30", 5, "      ", "     ", "      ", "    ", "", 495, 811, 811, 0,
     -421},
};

} // namespace

const Profile& ProfileOf(MachineKind machine)
{
    return Profiles[static_cast<size_t>(machine)];
}

const Profile& ActiveProfile()
{
    return ProfileOf(Shared.Machine);
}

bool MachineOfName(std::string_view name, MachineKind& machine)
{
    for (const Profile& profile : Profiles) {
        if (!EqualsNoCase(name, profile.Name)) continue;
        machine = profile.Machine;
        return true;
    }
    return false;
}

int MaxLines()
{
    return ActiveProfile().MaxLines - (Shared.EndCodeSeen ? 0 : 1);
}
