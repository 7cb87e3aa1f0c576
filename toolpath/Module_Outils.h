// The commands that prepare a drawing, in one include.
#pragma once

#include "toolpath/Module_Copie.h"
#include "toolpath/Module_Export.h"
#include "toolpath/Module_Nettoyage.h"
#include "toolpath/Module_Ordre.h"
#include "toolpath/Module_Texte.h"
#include "toolpath/Module_Transforme.h"
#include "toolpath/Module_Vinyl.h"
