// The values of the table in force, and its members under their own names. For shells alone: a kernel takes what it
// needs of them as values and never includes this.
#pragma once

#include "machine/TableMachine.h"

namespace ovelin {

extern TableMachine Table;

inline constinit auto& BrocheAuto = Table.BrocheAuto;
inline constinit auto& ClavierZENIK = Table.ClavierZENIK;
inline constinit auto& InverseX = Table.InverseX;
inline constinit auto& InverseY = Table.InverseY;
inline constinit auto& InverseZ = Table.InverseZ;
inline constinit auto& CourseX = Table.CourseX;
inline constinit auto& CourseY = Table.CourseY;
inline constinit auto& CourseZ = Table.CourseZ;
inline constinit auto& PasTourX = Table.PasTourX;
inline constinit auto& PasTourY = Table.PasTourY;
inline constinit auto& PasTourZ = Table.PasTourZ;
inline constinit auto& TransmissionX = Table.TransmissionX;
inline constinit auto& TransmissionY = Table.TransmissionY;
inline constinit auto& TransmissionZ = Table.TransmissionZ;
inline constinit auto& VitesseMaxX = Table.VitesseMaxX;
inline constinit auto& VitesseMaxY = Table.VitesseMaxY;
inline constinit auto& VitesseMaxZ = Table.VitesseMaxZ;

}  // namespace ovelin
