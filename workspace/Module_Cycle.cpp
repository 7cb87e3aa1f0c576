// Start of the program and load of the main window.
#include "workspace/Module_Cycle.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

#include "closed/Pathwerk.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Aide.h"
#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Etat.h"
#include "core/FichierDefaut.h"
#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/Projet.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "database/Module_BD.h"
#include "machine/Module_Table.h"
#include "machine/TableCourante.h"
#include "workspace/FinCycle.h"
#include "workspace/Formats.h"
#include "workspace/Module_Annulation.h"
#include "workspace/Module_Ouverture.h"

namespace ovelin {

EtatCycle Cycle;

namespace {

[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { Cycle = EtatCycle{}; });

constexpr int VersionPathwerkMin = 62;
constexpr int EssaisTouche = 10;
constexpr std::array<int, 3> VersionProgramme = {OVELIN_VERSION_MAJEURE, OVELIN_VERSION_MINEURE,
                                                 OVELIN_VERSION_REVISION};
constexpr const char* FichierVersion = "/Kolvane/files/OVELIN/ver.txt";

template <typename R, typename... A>
R Appelle(const std::function<R(A...)>& crochet, R sinon, A... arguments) {
  return crochet ? crochet(arguments...) : sinon;
}
void Appelle(const std::function<void()>& crochet) {
  if (crochet) crochet();
}

// Without a translation a text stands in French.
std::string TexteOu(CleTexte cle) {
  const std::string texte = Traduire(cle);
  return texte == cle.Cle() ? std::string(cle.Francais()) : texte;
}

// A box that is known by its text.
void MontreTexte(const std::string& texte, const std::string& fichier = "") {
  BoiteMessage boite;
  boite.texte = texte;
  boite.titre = NomProgramme;
  boite.icone = Icone::Exclamation;
  boite.fichier = fichier;
  Svc.Montre(boite);
}

void TrouveDossiers(const OptionsDemarrage& options) {
  if (options.config.empty()) {
    DossierProgramme = TrouveDossierProgramme(options.dossierExecutable);
    return;
  }
  std::error_code erreur;
  std::filesystem::create_directories(options.config, erreur);  // a failure shows when the settings are written
  DossierProgramme = CheminComplet(options.config);  // the settings file of a first start holds paths of it
  TrouveDossiersProduit(options.dossierExecutable);
}

void LitPremiersReglages(const OptionsDemarrage& options) {
  const std::string langue = LireCle(cles::Language, LangueDuSysteme(options.locale));
  Regl.Langue = options.langue.empty() ? langue : options.langue;
  const std::string table = LireCle(cles::TableDefaut, Reglages{}.TableDefaut);
  TableDefaut = options.table.empty() ? table : options.table;
  Cycle.NomSysteme = "Unix";
}

void PoseConstantes(const CrochetsDemarrage& crochets) {
  Svc.MarqueDecimale = Appelle(crochets.MarqueDecimale, Svc.MarqueDecimale);
  Cycle.OuvertureDehors = false;
  Cycle.Outil = MemoireOutil{MemoireOutil::Aucune, MemoireOutil::Aucune};
  Cycle.AfficheOutil = Cycle.AfficheOutil2 = false;
}

void Associe(const CrochetsDemarrage& crochets) {
  if (!crochets.Associe) return;
  crochets.Associe({NomProgramme, ".ovl", Traduire(Textes::DescriptionProjet), "OVELIN-2.ico"});
}

// The default settings file where there is none. What has been read before stays: a first run has the built-in
// defaults of the language, the table and the debug flag.
std::string EcritReglagesAbsents(bool& neuf) {
  if (FichierExiste(CheminIni())) return ReglagesRefuses();
  neuf = EcritFichierDefaut();
  if (neuf) return "";
  return Magasin.DerniereErreur.empty() ? CheminIni() : CheminIni() + ": " + Magasin.DerniereErreur;
}

void ChercheMiseAJour(const CrochetsDemarrage& crochets) {
  const std::string adresse = AdresseSite(FichierVersion);
  if (adresse.empty() || !Appelle(crochets.Connecte, false) || !crochets.DemandeMiseAJour) return;
  crochets.DemandeMiseAJour(adresse);
}

void ChargeReglages() {
  Crochets.ChargeTable = [] { ChargeGlobalesTable(); };
  // The board's records stand on the same table, with a board or without.
  TableChargee = [] { CdeZENIK->ChargeParametres(); };
  Crochets.ChercheMateriau = [] { ChercheFiche(); };
  LitCouleurs();
  LitOutil();
  LitOptions();
  ChargeGlobalesTable();
  LitMateriau();
}

// A key of the keypad that is held while the program starts is rather a keypad that isn't there.
void VerifieClavier(const CrochetsDemarrage& crochets) {
  bool tenue = false;
  for (int i = 0; i < EssaisTouche; ++i) tenue = Appelle(crochets.Touche, false) || tenue;
  if (!tenue || Message(Textes::ClavierTenu, Icone::Question, Boutons::OuiNon) != Reponse::Oui) return;
  ClavierZENIK = 0;
  EcrireCleSection(SectionTable(TableDefaut), ChampsMachine::ClavierZENIK.Cle(), "0");
}

void PrepareCarte(const CrochetsDemarrage& crochets) {
  Appelle(crochets.CreeCarte);
  if (Appelle(crochets.CartePresente, false)) {
    Appelle(crochets.ResetBuffer);
    if (ClavierZENIK != 0) VerifieClavier(crochets);
  }
  OperationCarte = false;
  Appelle(crochets.TableVerif);
}

// The whole screen is the limit on the far side, its edge on the near one; a place that was before the edge, on a
// screen to the left, is kept.
std::int32_t Ramene(std::int32_t place, std::int32_t taille, std::int32_t ecran) {
  const std::int64_t loin = std::max<std::int64_t>(std::int64_t{ecran} - taille, 0);
  return static_cast<std::int32_t>(std::min<std::int64_t>(place, loin));
}

}  // namespace

ResultatDemarrage DemarreCycle(const OptionsDemarrage& options, const CrochetsDemarrage& crochets) {
  ResultatDemarrage r;
  TrouveDossiers(options);
  LitPremiersReglages(options);
  if (crochets.AutreCopie ? crochets.AutreCopie() : VerrouilleCopie()) {
    Message(Textes::DejaOuvert, Icone::Exclamation, Boutons::Ok, TexteOu(Textes::TitreErreur));
    return r;
  }
  PoseConstantes(crochets);
  if (!Appelle(crochets.CompteurPrecis, true)) Message(Textes::SansHorlogePrecise, Icone::Information);
  Regl.DebugZENIK = LireBooleen(cles::DebugZENIK, Reglages{}.DebugZENIK);
  Associe(crochets);
  const int version = crochets.VersionPathwerk ? crochets.VersionPathwerk() : pathwerk::Version();
  if (version < VersionPathwerkMin) Message(Textes::PathwerkAncienne, Icone::Information);
  if (!(crochets.DossierTemporaire ? crochets.DossierTemporaire() : PrepareDossierTemp())) {
    DossierTemp.clear();
    MontreTexte("Temp Path Error");
  }
  EffaceTousInstantanes();
  r.raison = EcritReglagesAbsents(r.neuf);
  ChercheMiseAJour(crochets);
  ChargeReglages();
  PrepareCarte(crochets);
  r.lance = true;
  Appelle(crochets.MontreFenetre);
  return r;
}

bool MiseAJourOfferte(std::string_view reponse) {
  if (reponse.empty() || reponse.find("not found") != std::string_view::npos ||
      reponse.find(NomProgramme) == std::string_view::npos) {
    return false;
  }
  for (const int notre : VersionProgramme) {
    const std::size_t point = reponse.find('.');
    if (ValeurDebut(reponse.substr(0, point)) > notre) return true;
    reponse = point == std::string_view::npos ? std::string_view() : reponse.substr(point + 1);
  }
  return false;
}

void TraiteMiseAJour(std::string_view reponse, const std::function<void(const std::string& adresse)>& ouvre) {
  if (!MiseAJourOfferte(reponse)) return;
  if (Message(Textes::NouvelleVersion, Icone::Exclamation, Boutons::OuiNon) != Reponse::Oui) return;
  if (ouvre) ouvre(AdresseSite(""));
}

void ChargeTableEtFiches(const std::string& imposee) {
  const std::string chargee = TableDefaut;
  TableDefaut = imposee.empty() ? LireCle(cles::TableDefaut, Reglages{}.TableDefaut) : imposee;
  if (TableDefaut != chargee) ChargeGlobalesTable();
  Cycle.OutilFiche = LireNombreTable(ChampsMachine::Orientation) != 0;
  EcritFichesDefaut();
}

Placement LitPlacement(const std::string& fenetre, std::int32_t largeurEcran, std::int32_t hauteurEcran) {
  const Placement neuf;
  const auto lit = [&fenetre](const char* suffixe, std::int32_t defaut) {
    return Arrondi32(LireNombre(fenetre + suffixe, defaut));
  };
  Placement p;
  p.largeur = std::max(lit(cles::suffixe::Largeur, neuf.largeur), 1);
  p.hauteur = std::max(lit(cles::suffixe::Hauteur, neuf.hauteur), 1);
  p.gauche = Ramene(lit(cles::suffixe::Gauche, neuf.gauche), p.largeur, largeurEcran);
  p.haut = Ramene(lit(cles::suffixe::Haut, neuf.haut), p.hauteur, hauteurEcran);
  p.maximisee = lit(cles::suffixe::MaximiseeLue, 0) == -1;
  return p;
}

SuiteCommande OuvreLigneCommande(std::string ligne) {
  std::erase(ligne, '"');
  const std::string chemin = CheminComplet(Rogne(ligne));
  if (chemin.empty()) return SuiteCommande::Aucune;
  const std::string extension = ExtensionDe(chemin);
  const std::vector<std::string_view> connues = ExtensionsArgument();
  if (std::find(connues.begin(), connues.end(), extension) == connues.end()) {
    MontreTexte(TexteOu(Textes::ExtensionInconnue), chemin);
    return SuiteCommande::ExtensionInconnue;
  }
  RendUniforme(chemin);
  if (extension == "OVL" && !LitFichierEntier(chemin).value_or("").starts_with("$$")) {
    MontreTexte(TexteOu(Textes::OvlCorrompu), chemin);
    return SuiteCommande::OvlCorrompu;
  }
  std::error_code erreur;
  if (!std::filesystem::exists(chemin, erreur)) {
    Message(Textes::FichierDisparu, Icone::Exclamation);
    return SuiteCommande::Refusee;
  }
  Cycle.OuvertureDehors = true;
  OptionsOuverture options;
  options.retient = true;
  const Ouverture ouverture = mnu_Ouvrir(chemin, options);
  Cycle.OuvertureDehors = false;
  // Without a drawing there is no project: the end of the program would ask to save nothing.
  if (ouverture != Ouverture::Reussie) return SuiteCommande::Refusee;
  FichierProjet = chemin;
  Modifie = Vrai;
  return SuiteCommande::Ouverte;
}

}  // namespace ovelin
