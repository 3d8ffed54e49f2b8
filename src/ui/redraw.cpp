#include "ui/redraw.h"

#include "core/draw_window.h"
#include "core/shared_state.h"

void FollowEdit()
{
    if (frmDraw.chkAutoRedraw.Value == 1) FollowLoad();
}

void FollowLoad()
{
    if (frmDraw.Window.Visible) Shared.DrawingFollows = true;
}
