// keys.h: a key of the keyboard as the engine knows it.

#pragma once

#include "core/control.h"

#include <QKeyEvent>

#include <optional>

/// The key, or nothing when the engine has no name for it (modifiers, media keys, F3).
std::optional<KeyStroke> KeyStrokeOf(const QKeyEvent& event);

/// A character that was typed without a key of its own, as input methods do. One that isn't ASCII is -1,
/// which the entry fields swallow.
KeyStroke KeyStrokeOf(QChar typed);
