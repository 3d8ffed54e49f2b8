// listing_pages.h: a listing laid out on sheets.

#pragma once

#include "files/sheet.h"

/// The smallest size to which the font shrinks by itself, and its steps, in points.
constexpr double SmallestPoints = 6, PointStep = 0.5;

/// Sets the texts of a job page after page. The font shrinks until the widest line of its tables fits, down
/// to SmallestPoints (a smaller one that was chosen stays); what is still too long is wrapped, as are texts
/// that are no tables. A note in front of the table's header that would have to be wrapped even then shrinks
/// nothing. Once the header was printed each further page begins with it. Each page ends with a foot line:
/// name, path, date and the page's number.
std::vector<Sheet> LayOutListing(const PrintJob& job, PageSize page, const Face& face);

/// The size in points that the font of a listing shrinks to.
double ListingPoints(const PrintJob& job, double width, const Face& face);
