// One winch as the equipment files hold it: exactly 1024 bytes. Encoder numbers that only travel with the
// record have no name here; they are carried along unchanged.
#pragma once

#include "base/fixed_record.h"

namespace tarvik {

using WinchRecord = FixedRecord<1024>;

namespace winch {

constexpr TextField code{0, 8};
constexpr TextField name{8, 40};
constexpr TextField serialNumber{48, 20};
/// In the maker's file: the user has this winch. -1 true, 0 false.
constexpr Int16Field selected{68};
constexpr TextField reserved{334, 690};

static_assert(endOf(code) == name.offset && endOf(name) == serialNumber.offset);
static_assert(endOf(serialNumber) == selected.offset && endOf(reserved) == WinchRecord::size);

} // namespace winch

/// A record whose texts are blank and whose numbers are zero: no winch chosen.
[[nodiscard]] WinchRecord blankWinch();

} // namespace tarvik
