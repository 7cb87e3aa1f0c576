#include "run/Module_Dialecte.h"

#include <algorithm>

#include "base/Fichiers.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "run/Dialectes.h"
#include "run/Module_GCode.h"

namespace ovelin {

namespace {

constexpr double ValeurMax = 1e6;  // turns a minute or seconds, as the keys hold it

DialecteOffert LitOffert(const std::string& fichier) {
  DialecteOffert offert;
  offert.fichier = DansDossier(DossierProgramme, fichier);
  const std::string nom = NomSansExtension(fichier);
  std::string octets;
  if (const int erreur = base::LitFichier(offert.fichier, octets, TailleDialecte + 1); erreur != 0) {
    offert.refus = RefusDialecte{FauteDialecte::Illisible, 0, base::TexteErreur(erreur)};
  } else {
    DialecteLu lu = LitDialecte(octets, nom);
    offert.dialecte = std::move(lu.dialecte);
    offert.refus = std::move(lu.refus);
  }
  if (offert.refus) offert.dialecte.nom = offert.dialecte.titre = nom;
  return offert;
}

std::optional<CleTexte> Entre(double& valeur, const std::string& texte) {
  const auto v = NombreDuTexte(texte);
  if (!v) return Textes::VitesseNonNombre;
  if (*v < 0 || *v > ValeurMax) return Textes::BrocheHorsLimites;
  if (*v == valeur) return std::nullopt;
  valeur = *v;
  EcritSortieNC();
  return std::nullopt;
}

}  // namespace

std::vector<DialecteOffert> DialectesOfferts() {
  std::vector<DialecteOffert> offerts;
  for (const Dialecte& d : TableDialectes()) offerts.push_back({d, "", std::nullopt});
  for (const std::string& fichier : ListeFichiers(DossierProgramme, Majuscules(ExtensionDialecte))) {
    offerts.push_back(LitOffert(fichier));
  }
  return offerts;
}

std::optional<DialecteOffert> TrouveDialecte(std::string_view nom) {
  if (const Dialecte* ligne = DialecteDeTable(nom)) return DialecteOffert{*ligne, "", std::nullopt};
  for (DialecteOffert& offert : DialectesOfferts()) {
    if (Majuscules(offert.dialecte.nom) == Majuscules(nom)) return std::move(offert);
  }
  return std::nullopt;
}

CleTexte TexteFaute(FauteDialecte faute) {
  switch (faute) {
    case FauteDialecte::Nom:
      return Textes::DialecteNom;
    case FauteDialecte::Illisible:
      return Textes::DialecteIllisible;
    case FauteDialecte::Taille:
      return Textes::DialecteTaille;
    case FauteDialecte::Forme:
      return Textes::DialecteForme;
    case FauteDialecte::Cle:
      return Textes::DialecteCle;
    case FauteDialecte::Double:
      return Textes::DialecteDouble;
    case FauteDialecte::Base:
      return Textes::DialecteBase;
    case FauteDialecte::Valeur:
      return Textes::DialecteValeur;
    case FauteDialecte::Longueur:
      break;
  }
  return Textes::DialecteLongueur;
}

std::string TexteRefus(const DialecteOffert& offert) {
  const RefusDialecte& r = *offert.refus;
  const std::string ligne = r.ligne > 0 ? ":" + std::to_string(r.ligne) : "";
  return Traduire(TexteFaute(r.faute)) + "\n" + offert.fichier + ligne + ": " + r.texte;
}

std::optional<Dialecte> DialecteEnVigueur() {
  auto offert = TrouveDialecte(Regl.DialecteNC);
  if (!offert) {
    MessageFichier(Textes::DialecteInconnu, " " + Regl.DialecteNC, Icone::Critique, "");
    return std::nullopt;
  }
  if (!offert->refus) return std::move(offert->dialecte);
  BoiteMessage boite = BoiteDe(TexteFaute(offert->refus->faute), Icone::Critique);
  boite.texte = TexteRefus(*offert);
  boite.fichier = offert->fichier;
  boite.ligne = offert->refus->ligne;
  Svc.Montre(boite);
  return std::nullopt;
}

void ChoisitDialecte(const std::string& nom) {
  if (nom == Regl.DialecteNC) return;
  Regl.DialecteNC = nom;
  EcritSortieNC();
  const auto offert = TrouveDialecte(nom);
  if (NomFichierNC.empty() || !offert || offert->refus) return;
  NomFichierNC = NomSansExtension(NomFichierNC) + "." + offert->dialecte.extension;
}

std::optional<CleTexte> EntreVitesseBroche(const std::string& texte) { return Entre(Regl.VitesseBroche, texte); }
std::optional<CleTexte> EntreAttenteBroche(const std::string& texte) { return Entre(Regl.AttenteBroche, texte); }

}  // namespace ovelin
