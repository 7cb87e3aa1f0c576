#include "app/ovelin/Composition.h"

#include <QDialog>
#include <map>
#include <string>

#include "core/Services.h"
#include "core/ui/F_ParamAppli.h"
#include "core/ui/Fenetres.h"
#include "core/ui/ServicesQt.h"
#include "database/ui/F_BD.h"
#include "run/ui/F_Fraisage.h"
#include "workspace/ui/F_Dimension.h"
#include "workspace/ui/F_Nettoyage.h"
#include "workspace/ui/F_Soudure.h"

namespace ovelin {

namespace {

// Modal over its owner; true when it was closed by its OK.
template <class F>
bool Ouvre(QWidget* proprietaire) {
  F fenetre(proprietaire);
  return fenetre.exec() == QDialog::Accepted;
}

using Ouvreur = bool (*)(QWidget*);

const std::map<std::string, Ouvreur>& Fenetres() {
  static const std::map<std::string, Ouvreur> toutes{
      {"F_BD", Ouvre<F_BD>},
      {"F_Fraisage", Ouvre<F_Fraisage>},
      {"F_Nettoyage", Ouvre<F_Nettoyage>},
      {"F_ParamAppli", Ouvre<F_ParamAppli>},
      {"F_Soudure", Ouvre<F_Soudure>},
  };
  return toutes;
}

}  // namespace

void InstalleFenetres() {
  FenetreExiste = [](const std::string& nom) { return Fenetres().contains(nom); };
  OuvreFenetre = [](const std::string& nom, QWidget* proprietaire) {
    const auto trouvee = Fenetres().find(nom);
    return trouvee != Fenetres().end() && trouvee->second(proprietaire);
  };
  // The size dialog of a drawing that is being opened.
  Svc.Dimensionne = [](DemandeDimension& demande) {
    F_Dimension fenetre(demande, Proprietaire());
    fenetre.exec();
    demande = fenetre.Reponse();
  };
}

}  // namespace ovelin
