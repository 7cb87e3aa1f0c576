// Small operations on the document in force, in one include; they refresh nothing.
#pragma once

#include "toolpath/FichesSequence.h"
#include "toolpath/PointsSequence.h"
#include "toolpath/Recherche.h"
