#include "app/cli/Contexte.h"

#include <unistd.h>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "base/Indices.h"
#include "controller/ChangtTable.h"
#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/Coeurs.h"
#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "core/Types.h"
#include "core/ValeursCles.h"
#include "database/Module_BD.h"
#include "machine/Module_Table.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Module_Demarrage.h"

namespace ovelin::cli {

namespace {

// A bar on standard error, only on a terminal and only for what takes longer than a second.
struct Barre {
  bool terminal = false;
  std::string texte;
  long total = 0, fait = 0;
  double debut = 0, dernier = 0;
  bool visible = false;

  void Debut(const std::string& quoi, long combien) {
    texte = quoi;
    total = combien;
    fait = 0;
    debut = dernier = Svc.Horloge();
  }
  void Plus() {
    ++fait;
    if (!terminal || total <= 0) return;
    const double maintenant = Svc.Horloge();
    if (maintenant - debut < 1.0 || maintenant - dernier < 0.1) return;
    dernier = maintenant;
    visible = true;
    constexpr int Largeur = 40;
    const int plein = static_cast<int>(std::min(fait, total) * Largeur / total);
    std::fprintf(stderr, "\r%s [%s%s] %ld/%ld ", texte.c_str(), std::string(base::Indice(plein), '#').c_str(),
                 std::string(base::Indice(Largeur - plein), '.').c_str(), fait, total);
    std::fflush(stderr);
  }
  void Fin() {
    if (visible) std::fprintf(stderr, "\r\033[K");
    visible = false;
  }
};
Barre LaBarre;

Reponse ReponseUnique(Boutons boutons) { return boutons == Boutons::Ok ? Reponse::Ok : Reponse::Annuler; }

std::string TexteSeul(const BoiteMessage& boite) {
  std::string texte;
  for (const char c : boite.texte) {
    if (c != '\r') texte += c;
  }
  return texte;
}

// The answer of a question: --answer by its key; the question of the power interface at the first start is answered
// OK; without an answer the call ends here. Nothing is half done then: files are written whole at the end of each
// procedure only.
Reponse ReponduOuFini(Contexte& contexte, const BoiteMessage& boite) {
  const auto trouvee = contexte.reponsesParCle.find(boite.cle);
  if (trouvee != contexte.reponsesParCle.end()) return trouvee->second;
  if (boite.section == Textes::DemandeInterface.Section() && boite.cle == Textes::DemandeInterface.Cle())
    return Reponse::Ok;
  LaBarre.Fin();
  Echec(contexte, boite.cle, TexteSeul(boite), boite.fichier, boite.ligne);
  std::fflush(nullptr);
  std::_Exit(Refuse);
}

Reponse Montre(Contexte& contexte, const BoiteMessage& boite) {
  if (boite.boutons != Boutons::Ok) return ReponduOuFini(contexte, boite);
  LaBarre.Fin();
  contexte.derniere = boite;
  // A refusal is printed once, by the command that ends on it; what merely informs is printed here.
  if (boite.icone != Icone::Critique) std::fprintf(stderr, "%s\n", TexteSeul(boite).c_str());
  return ReponseUnique(boite.boutons);
}

// The windows that a call can ask for, with what may be chosen in them.
constexpr const char* FenetreTables = "F_ChangtTable";

bool LitChoix(Contexte& contexte, const std::string& fenetre, const std::string& mot) {
  if (fenetre != FenetreTables) return false;
  if (mot == "cancel") {
    contexte.choixParFenetre[fenetre] = std::nullopt;
    return true;
  }
  if (mot.size() != 1 || mot[0] < '0' || mot[0] >= '0' + TablesOffertes) return false;
  contexte.choixParFenetre[fenetre] = mot[0] - '0';
  return true;
}

// Which table of a full board makes room: what its window does is done here.
std::optional<int> OuvreFenetre(Contexte& contexte, const std::string& nom) {
  if (nom != FenetreTables) return std::nullopt;
  const auto choix = contexte.choixParFenetre.find(nom);
  if (choix == contexte.choixParFenetre.end()) {
    LaBarre.Fin();
    std::string tables;
    for (const std::string& legende : LegendesTables()) tables += "\n" + Rogne(legende);
    Echec(contexte, nom, Traduire(Textes::TableARemplacer) + tables);
    std::fflush(nullptr);
    std::_Exit(Refuse);
  }
  if (choix->second) RemplaceTable(static_cast<std::uint8_t>(*choix->second));
  return choix->second;
}

bool LitReponses(Contexte& contexte) {
  static const std::map<std::string, Reponse> Mots{
      {"yes", Reponse::Oui}, {"no", Reponse::Non}, {"ok", Reponse::Ok}, {"cancel", Reponse::Annuler}};
  for (const std::string& r : contexte.reponses) {
    const std::size_t egal = r.rfind('=');
    if (egal != std::string::npos && LitChoix(contexte, r.substr(0, egal), r.substr(egal + 1))) continue;
    const auto mot = egal == std::string::npos ? Mots.end() : Mots.find(r.substr(egal + 1));
    if (mot == Mots.end()) return false;
    contexte.reponsesParCle[r.substr(0, egal)] = mot->second;
  }
  return true;
}

bool LitSurcharges(const Contexte& contexte) {
  for (const std::string& r : contexte.reglages) {
    const std::size_t egal = r.find('=');
    if (egal == std::string::npos || egal == 0) return false;
    Magasin.Surcharge[r.substr(0, egal)] = r.substr(egal + 1);
  }
  return true;
}

int JugeSurcharges(const Contexte& contexte) {
  for (const auto& [cle, valeur] : Magasin.Surcharge) {
    if (const int etat = RefuseValeur(contexte, cle, valeur, "--set")) return etat;
  }
  return Fait;
}

// Of a file that could not be read as it is: the call ends where a job or a file would come of it.
int JugeValeurs(const Contexte& contexte, std::vector<ValeurIllisible> valeurs) {
  for (ValeurIllisible& v : ReglagesIllisibles()) {
    if (v.fichier == CheminIni()) valeurs.push_back(std::move(v));
  }
  for (const ValeurIllisible& v : valeurs) {
    const std::string texte = Traduire(Textes::ValeurRefusee) + " " + TexteValeur(v);
    if (!contexte.informe) return Echec(contexte, "Valeur", texte, v.fichier, v.ligne);
    std::fprintf(stderr, "%s\n", texte.c_str());
  }
  return Fait;
}

// Settings that can't be read would give a job at other speeds.
int JugeReglages(const Contexte& contexte) {
  const std::string raison = ReglagesRefuses();
  if (raison.empty() || contexte.informe) return Fait;
  return Echec(contexte, Textes::LectureRefusee, "\n" + raison, CheminIni());
}

bool Surchargee(std::string_view cle) {
  for (const auto& [nom, valeur] : Magasin.Surcharge) {
    if (Majuscules(nom) == Majuscules(cle)) return true;
  }
  return false;
}

// A material sets nine values; those that --set names keep the value of --set.
void RetablitSurcharges() {
  const Reglages materiau = Regl;
  LitMateriau();
  LitOutil();
  const Reglages voulu = Regl;
  Regl = materiau;
  if (Surchargee(cles::RayonFraise)) RayonFraise = voulu.RayonFraise;
  if (Surchargee(cles::LargeurEncoche)) LargeurEncoche = voulu.LargeurEncoche;
  if (Surchargee(cles::MiniEncoche)) MiniEncoche = voulu.MiniEncoche;
  if (Surchargee(cles::ProfFraisage)) {
    ProfFraisage = voulu.ProfFraisage;
    ProfondeurPourTous();
  }
  if (Surchargee(cles::ProfPasse)) ProfPasse = voulu.ProfPasse;
  if (Surchargee(cles::Vitesse_Mat_H)) Vitesse_Mat_H = voulu.Vitesse_Mat_H;
  if (Surchargee(cles::Vitesse_Mat_V)) Vitesse_Mat_V = voulu.Vitesse_Mat_V;
}

std::string DossierExecutable() {
  std::error_code erreur;
  const std::filesystem::path chemin = std::filesystem::read_symlink("/proc/self/exe", erreur);
  return erreur ? std::string(".") : chemin.parent_path().string();
}

std::string LocaleDesTextes() {
  for (const char* nom : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* valeur = std::getenv(nom);
    if (valeur != nullptr && *valeur != '\0') return valeur;
  }
  return "C";
}

char MarqueDuSysteme() {
  std::setlocale(LC_NUMERIC, "");
  const char marque = *std::localeconv()->decimal_point;
  std::setlocale(LC_NUMERIC, "C");
  return marque == ',' ? ',' : '.';
}

// mm of a unit by its name; 0 for none.
double MmDe(std::string_view unite) {
  if (unite == "mm") return 1;
  if (unite == "cm") return 10;
  if (unite == "in") return 25.4;
  if (unite == "pt") return 25.4 / 72;
  return unite == "px" ? 25.4 / 96 : 0;
}

}  // namespace

void InstalleServices(Contexte& contexte) {
  LaBarre.terminal = isatty(STDERR_FILENO) == 1;
  Svc = ServicesMuets();
  Svc.MarqueDecimale = contexte.decimale.empty() ? MarqueDuSysteme() : contexte.decimale[0];
  Svc.Montre = [&contexte](const BoiteMessage& boite) { return Montre(contexte, boite); };
  Svc.OuvreFenetre = [&contexte](const std::string& nom) { return OuvreFenetre(contexte, nom); };
  Svc.AvancementDebut = [](const std::string& texte, long total) { LaBarre.Debut(texte, total); };
  Svc.AvancementPlus = [] { LaBarre.Plus(); };
  Svc.AvancementFin = [] { LaBarre.Fin(); };
}

int Echec(const Contexte& contexte, std::string_view cle, const std::string& texte, const std::string& fichier,
          long ligne) {
  std::fprintf(stderr, "%s\n", texte.c_str());
  if (contexte.json) {
    Json erreur;
    erreur["key"] = cle;
    erreur["text"] = texte;
    erreur["file"] = fichier;
    erreur["line"] = ligne;
    std::printf("%s\n", Json{{"error", erreur}}.dump(-1, ' ', false, Json::error_handler_t::replace).c_str());
  }
  return Refuse;
}

int Echec(const Contexte& contexte, CleTexte texte, const std::string& suite, const std::string& fichier) {
  return Echec(contexte, texte.Cle(), Traduire(texte) + suite, fichier);
}

int EchecBoite(const Contexte& contexte) {
  const BoiteMessage& b = contexte.derniere;
  return Echec(contexte, b.cle, TexteSeul(b), b.fichier, b.ligne);
}

int Resultat(const Contexte& contexte, const Json& objet) {
  if (contexte.json) {
    std::printf("%s\n", objet.dump(-1, ' ', false, Json::error_handler_t::replace).c_str());
    return Fait;
  }
  for (const auto& [nom, valeur] : objet.items()) {
    const std::string texte = valeur.is_string() ? valeur.get<std::string>()
                                                 : valeur.dump(-1, ' ', false, Json::error_handler_t::replace);
    std::printf("%s: %s\n", nom.c_str(), texte.c_str());
  }
  return Fait;
}

int Demarre(Contexte& contexte) {
  NombreCoeurs = CoeursDeLaMachine();
  InstalleServices(contexte);
  Magasin.EcrireIni = false;
  if (!LitReponses(contexte) || !LitSurcharges(contexte)) {
    std::fprintf(stderr, "--set KEY=VALUE, --answer KEY=yes|no|ok|cancel\n");
    return Usage;
  }
  OptionsDemarrage options;
  options.dossierExecutable = DossierExecutable();
  options.config = contexte.config;
  options.locale = LocaleDesTextes();
  options.langue = contexte.langue;
  options.table = contexte.table;
  const std::string raison = DemarreProgramme(options);
  if (const int etat = JugeReglages(contexte)) return etat;
  // Without a settings file the built-in values serve; the user is told, the job goes on.
  if (!raison.empty()) std::fprintf(stderr, "%s\n", raison.c_str());
  if (const int etat = JugeSurcharges(contexte)) return etat;
  if (!contexte.table.empty()) {
    bool connue = false;
    for (const std::string& nom : ovelin::ListeTables())
      connue = connue || Majuscules(nom) == Majuscules(contexte.table);
    if (!connue) return Echec(contexte, Textes::TableInconnue, DansReglages(contexte.table), CheminIni());
  }
  return Fait;
}

std::string DansReglages(const std::string& nom) { return " " + nom + " (" + CheminIni() + ")"; }

int RangMateriau(const std::string& nom) {
  const auto fiches = LitFiches();
  for (std::size_t i = 0; i < fiches.size(); ++i) {
    if (Majuscules(fiches[i].champs[0]) == Majuscules(nom)) return base::Compte(i) + 1;
  }
  return 0;
}

int RefuseValeur(const Contexte& contexte, const std::string& cle, const std::string& valeur,
                 const std::string& lieu) {
  const auto faute = JugeCle(cle, valeur);
  if (!faute) return Fait;
  CleTexte texte = Textes::CleInconnue;
  if (*faute == FauteCle::Limites) texte = Textes::ValeurHorsLimites;
  if (*faute == FauteCle::Illisible) texte = Textes::ValeurIllisible;
  return Echec(contexte, texte, " " + lieu + " " + cle + "=" + valeur, lieu == "--set" ? "" : lieu);
}

int OuvreDessin(Contexte& contexte, const std::string& chemin, ContenuLu* contenu) {
  int rang = 0;
  std::vector<ValeurIllisible> valeurs;
  if (!contexte.materiau.empty()) {
    rang = RangMateriau(contexte.materiau);
    if (rang == 0) {
      return Echec(contexte, Textes::MateriauInconnu, DansReglages(contexte.materiau), CheminIni());
    }
    if (auto v = FicheIllisible(rang)) valeurs.push_back(std::move(*v));
  }
  OptionsOuverture options;
  options.ecritFichier = false;
  options.rendUniforme = false;
  options.demandeUnite = false;
  options.souhait.page = contexte.page;
  options.souhait.uniteSvg = MmDe(contexte.unite);
  ContenuLu lu;
  const Ouverture ouverture = mnu_Ouvrir(chemin, options, &lu);
  if (ouverture == Ouverture::Abandon) {
    return Echec(contexte, Textes::LectureRefusee, "\n" + chemin, chemin);
  }
  if (ouverture == Ouverture::Refusee) {
    if (contexte.derniere.fichier.empty()) contexte.derniere.fichier = chemin;
    return EchecBoite(contexte);
  }
  valeurs.insert(valeurs.end(), lu.illisibles.begin(), lu.illisibles.end());
  if (const int etat = JugeValeurs(contexte, std::move(valeurs))) return etat;
  if (contenu != nullptr) *contenu = std::move(lu);
  if (rang != 0) {
    // An answer No to the question of unequal depths keeps the depths of the paths and leaves the traces as they
    // are; here nobody sees that they belong to another radius, so they are computed anew.
    AppliqueMateriau(rang);
    if (!Magasin.Surcharge.empty()) RetablitSurcharges();
    RecalculDecalages();
  }
  return Fait;
}

int VerifieSortie(const Contexte& contexte, const std::string& sortie, std::string_view extension,
                  std::initializer_list<std::string> entrees) {
  for (const std::string& entree : entrees) {
    if (MemeFichier(sortie, entree)) return Echec(contexte, Textes::SortieEstEntree, " " + sortie, sortie);
  }
  std::error_code erreur;
  const bool fichier =
      !sortie.starts_with("/dev/") && (!std::filesystem::exists(sortie, erreur) || FichierExiste(sortie));
  if (extension.empty() || !fichier || ExtensionDe(sortie) == Majuscules(extension)) return Fait;
  const std::string attendue = " ." + std::string(extension) + "\n" + sortie;
  return Echec(contexte, Textes::ExtensionAttendue, attendue, sortie);
}

int EcritResultat(const Contexte& contexte, const std::string& chemin, std::string_view octets) {
  const std::string raison = EcritFichierEntier(chemin, octets);
  if (raison.empty()) return Fait;
  return Echec(contexte, Textes::EcritureRefusee, "\n" + chemin + ": " + raison, chemin);
}

}  // namespace ovelin::cli
