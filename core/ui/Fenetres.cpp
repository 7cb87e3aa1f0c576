#include "core/ui/Fenetres.h"

#include "core/ui/LanguesPresentes.h"
#include "core/ui/Theme.h"
#include "core/ui/TraduitFenetre.h"

namespace ovelin {

std::function<bool(const std::string&, QWidget*)> OuvreFenetre;
std::function<bool(const std::string&)> FenetreExiste;
std::function<int(QWidget*, int)> ChoisitCouleur;

void PrepareFenetre(QWidget& fenetre, const char* nom) {
  fenetre.setObjectName(QString::fromLatin1(nom));
  fenetre.setWindowIcon(IconeProgramme(QStringLiteral("OVELIN-2")));
  TraduitBoiteAOutils();
  TraduireFenetre(fenetre);
}

}  // namespace ovelin
