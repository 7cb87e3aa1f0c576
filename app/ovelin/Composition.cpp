#include "app/ovelin/Composition.h"

#include <QDialog>
#include <map>
#include <string>

#include "core/ui/F_ParamAppli.h"
#include "core/ui/Fenetres.h"

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
      {"F_ParamAppli", Ouvre<F_ParamAppli>},
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
}

}  // namespace ovelin
