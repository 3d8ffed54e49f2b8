// ops_json.h: the operations of a canvas as JSON.

#pragma once

#include "drawing/recording.h"

#include <nlohmann/json.hpp>

/// ["DrawLine",x1,y1,x2,y2] and so on: numbers in twips and radians with up to 4 decimals.
nlohmann::ordered_json OperationAsJson(const Operation& operation);

/// "#rrggbb" of a colour in blue-green-red order.
std::string ColorText(int color);
