// Keys of the toolkit as the codes of manual control.
#pragma once

#include <QKeyEvent>

namespace ovelin {

// 0 for a key that manual control does not know. A key of the numeric pad is its digit whatever the lock says,
// since a held Shift turns the lock for it: Shift with the 9 would otherwise be Page Up and move Z.
int CodeTouche(const QKeyEvent& e);

}  // namespace ovelin
