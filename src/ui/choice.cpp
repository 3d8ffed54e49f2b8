#include "ui/choice.h"

#include "core/main_window.h"

namespace {

void RunClick(const Control& control)
{
    if (control.On.ClickElement != nullptr) control.On.ClickElement(control.Element);
    if (control.On.Click != nullptr) control.On.Click();
}

} // namespace

void Choose(Control& option)
{
    if (option.Value == 1) return;
    frmMain.ForEach([&](Control& other) {
        if (other.Is == Kind::Option && other.In == option.In) other.Value = 0;
    });
    option.Value = 1;
    RunClick(option);
}

void SetCheck(Control& box, bool checked)
{
    const int value = checked ? 1 : 0;
    if (box.Value == value) return;
    box.Value = value;
    RunClick(box);
}

void PickItem(Control& list, int index)
{
    if (list.Index == index) return;
    list.Index = index;
    if (list.Is == Kind::Combo) list.Text = index < 0 ? "" : list.Items[static_cast<size_t>(index)];
    RunClick(list);
}
