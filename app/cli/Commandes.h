// The commands of ovelin-cli, in one include.
#pragma once

#include "app/cli/CommandesCarte.h"
#include "app/cli/CommandesDessin.h"
#include "app/cli/CommandesDialectes.h"
#include "app/cli/CommandesFraisage.h"
#include "app/cli/CommandesGcode.h"
#include "app/cli/CommandesReglages.h"
#include "app/cli/CommandesReprise.h"
#include "app/cli/Operations.h"
