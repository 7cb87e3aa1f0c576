#include "app/ovelin/Composition.h"

#include <array>

#include "controller/ui/F_CarteVirtuelle.h"
#include "controller/ui/F_ChangtTable.h"
#include "core/Services.h"
#include "core/ui/F_About.h"
#include "core/ui/F_ParamAppli.h"
#include "core/ui/ServicesQt.h"
#include "database/ui/F_BD.h"
#include "gcode/ui/F_Gcode.h"
#include "machine/essais/ui/F_ParamMachine.h"
#include "machine/essais/ui/F_PasPerdus.h"
#include "machine/essais/ui/F_Test.h"
#include "manual/Module_PlaceMan.h"
#include "manual/ui/F_PilMan.h"
#include "run/ui/F_Fraisage.h"
#include "toolpath/ui/F_Exporter.h"
#include "toolpath/ui/F_Texte.h"
#include "toolpath/ui/F_Vinyl.h"
#include "workspace/ui/dialogues/F_Attaches.h"
#include "workspace/ui/dialogues/F_Dimension.h"
#include "workspace/ui/dialogues/F_Nettoyage.h"
#include "workspace/ui/dialogues/F_Repeter.h"
#include "workspace/ui/dialogues/F_Reprise.h"
#include "workspace/ui/dialogues/F_Soudure.h"

namespace ovelin {

namespace {

constexpr std::array Table{
    LigneDe<F_About>("F_About", Exemplaires::Un, Tenue::Modale),
    LigneDe<F_Attaches>("F_Attaches", Exemplaires::Un, Tenue::Modale),
    LigneDe<F_BD>("F_BD", Exemplaires::Un, Tenue::Modale),
    LigneDe<F_CarteVirtuelle>("F_CarteVirtuelle", Exemplaires::Un, Tenue::Libre),
    LigneDe<F_ChangtTable>("F_ChangtTable", Exemplaires::Un, Tenue::Modale),
    LigneDe<F_Dimension>("F_Dimension", Exemplaires::Un, Tenue::Modale),
    LigneDe<F_Exporter>("F_Exporter", Exemplaires::Un, Tenue::Modale),
    LigneDe<F_Fraisage>("F_Fraisage", Exemplaires::Un, Tenue::Libre),
    LigneDe<F_Gcode>("F_Gcode", Exemplaires::Un, Tenue::Libre),
    LigneDe<F_Nettoyage>("F_Nettoyage", Exemplaires::Un, Tenue::Modale),
    LigneDe<F_ParamAppli>("F_ParamAppli", Exemplaires::Un, Tenue::Modale),
    LigneDe<F_ParamMachine>("F_ParamMachine", Exemplaires::Un, Tenue::Libre),
    LigneDe<F_PasPerdus>("F_PasPerdus", Exemplaires::Un, Tenue::Modale),
    LigneDe<F_PilMan>("F_PilMan", Exemplaires::Un, Tenue::Libre),
    LigneDe<F_Repeter>("F_Repeter", Exemplaires::Un, Tenue::Modale),
    LigneDe<F_Reprise>("F_Reprise", Exemplaires::Un, Tenue::Modale),
    LigneDe<F_Soudure>("F_Soudure", Exemplaires::Un, Tenue::Modale),
    LigneDe<F_Test>("F_Test", Exemplaires::Un, Tenue::Modale),
    LigneDe<F_Texte>("F_Texte", Exemplaires::Un, Tenue::Modale),
    LigneDe<F_Vinyl>("F_Vinyl", Exemplaires::Un, Tenue::Modale),
};

}  // namespace

std::span<const LigneFenetre> TableFenetres() { return Table; }

void InstalleFenetres() {
  InstalleTable(TableFenetres());
  // A job keeps the place of the machine whether or not the window of manual control has been opened.
  Svc.Pilotage = SuitPilotage;
  // The size dialog of a drawing that is being opened.
  Svc.Dimensionne = [](DemandeDimension& demande) {
    F_Dimension fenetre(demande, Proprietaire());
    fenetre.exec();
    demande = fenetre.Reponse();
  };
}

}  // namespace ovelin
