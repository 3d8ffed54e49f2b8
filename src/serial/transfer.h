// transfer.h: what transmission and reception share: the progress they show, and a port that fails.

#pragma once

#include "platform/port.h"

#include <string>
#include <string_view>

/// Writes what a running transmission or reception has to say into lblTransfer, and offers the last received
/// text in an empty pane. Runs when an event is over.
void ShowTransfer();

/// Why a port failed and what to do about it, in the language in force; "" when nothing is known.
std::string ReasonOf(const PortFailure& failure);

/// The boxes that a port's failure shows.
enum class TroubleBox {
    Numbered, ///< its number, its description and the routine
    Problem,  ///< "port problem"
    Plain     ///< its description
};

/// Tells the user about a port that failed, once, with what to do about it, and switches communication off
/// until it is enabled again: the failure is logged under `procedure` (a string literal) and the port closed.
/// Line parameters that a port refuses leave it as it is.
void PortTrouble(const PortFailure& failure, std::string_view procedure,
                 TroubleBox box = TroubleBox::Numbered);
