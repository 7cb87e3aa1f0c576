// The pages of plain fields of the window of parameters.
#pragma once

#include <QWidget>

namespace ovelin {

class ControlesTable;

// Motors and screws, a column an axis.
QWidget* PageMecanique(ControlesTable& controles);
// Speeds without and with ramp, the ramp and its sketch, the tick rate.
QWidget* PageVitesses(ControlesTable& controles);
// Travel, zero of Z, the side from which the machine is seen.
QWidget* PageCourses(ControlesTable& controles);
// Options of the board, and what is kept for other programs.
QWidget* PageCarte(ControlesTable& controles);

}  // namespace ovelin
