#include "workspace/Module_Annulation.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Indices.h"
#include "base/SansCopie.h"
#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Etat.h"
#include "core/Nombres.h"
#include "core/Projet.h"
#include "core/ReglagesCourants.h"
#include "core/Reprises.h"
#include "core/Services.h"
#include "database/Module_BD.h"
#include "image/Apercu.h"
#include "machine/TableCourante.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/PasseTraces.h"
#include "workspace/Module_Travail.h"

namespace ovelin {

namespace {

constexpr std::size_t ChiffresNom = 5;
constexpr const char* ExtensionRefaire = "refait";  // of what undo has taken back; the first taken back is 1
constexpr std::size_t ApercusMax = 200;             // states that keep their small picture

// What makes a file this one, whatever its name: a hard link has the same.
struct Identite {
  dev_t volume = 0;
  ino_t numero = 0;
  off_t taille = -1;  // -1: no file
  time_t secondes = 0;
  long nanosecondes = 0;
  bool operator==(const Identite&) const = default;
};

Identite IdentiteDe(const std::string& chemin) {
  struct stat etat {};
  if (lstat(chemin.c_str(), &etat) != 0 || !S_ISREG(etat.st_mode)) return {};
  return {etat.st_dev, etat.st_ino, etat.st_size, etat.st_mtim.tv_sec, etat.st_mtim.tv_nsec};
}

// What the last snapshot holds, so that an unchanged document is found without composing its file.
struct DernierEtat {
  Identite identite;
  std::string reglages;  // its settings lines
  char marque = '.';
  std::vector<PointTrace> points;
  std::vector<SequenceInfo> sequences;
  TableComplements complements;
};
DernierEtat Dernier;
std::vector<Drapeau> DerniereSelection;  // at the last snapshot
// The picture of a state that has been put back is put off: the snapshot that it would leave has no state of its
// own.
bool ImageDue = false;
std::optional<Reprise> ATenir;  // recovered work that has no snapshot of this process yet
// What the steps have changed, in the order of their snapshots, and of those taken back, the next one last.
std::vector<PasHistorique> Faits, Refaits;

void Oublie() {
  Dernier = DernierEtat{};
  DerniereSelection.clear();
  ImageDue = false;
  ATenir.reset();
  Faits.clear();
  Refaits.clear();
}
[[maybe_unused]] const bool Enregistree = EnregistreRemise(Oublie);

// `Instantane` and the path of the snapshot stand as long as the object.
class PendantInstantane : base::SansCopie {
 public:
  explicit PendantInstantane(const std::string& chemin) {
    FichierInstantane = chemin;
    Instantane = Vrai;
  }
  ~PendantInstantane() { Instantane = Faux; }
};

// The selection isn't part of a project.
bool MemesFiches(const std::vector<SequenceInfo>& a, const std::vector<SequenceInfo>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](SequenceInfo x, const SequenceInfo& y) {
    x.Selection = y.Selection;
    return x == y;
  });
}

// A look at a large drawing compares all of it, and nearly always it is the same to the bit.
bool MemesPoints(const std::vector<PointTrace>& a, const std::vector<PointTrace>& b) {
  if (a.size() != b.size()) return false;
  return a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(PointTrace)) == 0 || a == b;
}

// What the last snapshot was taken of, whatever has become of its file.
bool MemeEtat(const std::string& reglages) {
  return Dernier.marque == Svc.MarqueDecimale && Dernier.reglages == reglages &&
         MemesPoints(Dernier.points, TraceInitial) && MemesFiches(Dernier.sequences, Sequences) &&
         Dernier.complements == Complements;
}

bool Inchange(const Identite& avant, const std::string& reglages) {
  return avant.taille >= 0 && avant == Dernier.identite && MemeEtat(reglages);
}

// The drawing is empty, and so it was at the last snapshot. One step is enough for that: a project without points
// can't be read back, so the one before an empty one must always be the drawing.
bool DejaVide(const std::string& avant) {
  constexpr std::size_t PointsMin = 2;
  return TraceInitial.size() < PointsMin && !avant.empty() && Dernier.points.size() < PointsMin &&
         IdentiteDe(avant) == Dernier.identite;
}

// Block by block: two states of one drawing have files of one length, and differ near their start.
bool MemesOctets(const std::string& un, const std::string& autre) {
  constexpr std::size_t Bloc = 65536;
  std::ifstream a(un, std::ios::binary);
  std::ifstream b(autre, std::ios::binary);
  std::vector<char> blocA(Bloc);
  std::vector<char> blocB(Bloc);
  if (!a || !b) return false;
  while (a && b) {
    a.read(blocA.data(), Bloc);
    b.read(blocB.data(), Bloc);
    if (a.gcount() != b.gcount() || !std::equal(blocA.begin(), blocA.begin() + a.gcount(), blocB.begin())) {
      return false;
    }
  }
  return a.eof() && b.eof();
}

// Two files of one length with the same bytes become one with two names.
bool Reunit(const std::string& avant, const std::string& chemin) {
  const Identite a = IdentiteDe(avant);
  if (a.taille < 0 || a.taille != IdentiteDe(chemin).taille || !MemesOctets(avant, chemin)) return false;
  const std::string provisoire = chemin + ".lien";
  if (link(avant.c_str(), provisoire.c_str()) != 0) return false;
  if (rename(provisoire.c_str(), chemin.c_str()) == 0) return true;
  unlink(provisoire.c_str());
  return false;
}

bool EstInstantane(const std::string& nom) { return ExtensionDe(nom) == "OVL"; }

// The last name of a sorted listing, "" when there is none. Hidden files aren't listed.
std::string DernierNom() {
  std::string dernier;
  if (DossierTemp.empty()) return dernier;
  DIR* dossier = opendir(DossierTemp.c_str());
  if (dossier == nullptr) return dernier;
  while (const dirent* entree = readdir(dossier)) {
    const std::string nom = entree->d_name;
    if (nom.starts_with(".") || nom <= dernier || !EstInstantane(nom)) continue;
    if (entree->d_type == DT_REG || IdentiteDe(DansDossier(DossierTemp, nom)).taille >= 0) dernier = nom;
  }
  closedir(dossier);
  return dernier;
}

int Numero(const std::string& nom) {
  const double n = ValeurDebut(std::string_view(nom).substr(0, ChiffresNom));
  return static_cast<int>(std::clamp(n, 0.0, 99999.0));
}

void Supprime(int numero) { unlink(CheminInstantane(numero).c_str()); }

std::string CheminRefaire(int rang) { return DossierTemp + "/" + std::to_string(rang) + "." + ExtensionRefaire; }

void OublieRefaire() {
  Refaits.clear();
  for (int rang = 1; unlink(CheminRefaire(rang).c_str()) == 0; ++rang) {
  }
}

// The snapshot leaves the list; mnu_Redo finds it as the next one.
void MetDeCote(int numero) {
  const int rang = PasARefaire() + 1;
  if (rename(CheminInstantane(numero).c_str(), CheminRefaire(rang).c_str()) != 0) return Supprime(numero);
  Faits.resize(base::Indice(numero));
  Refaits.resize(base::Indice(rang - 1));
  Refaits.push_back(std::move(Faits.back()));
  Faits.pop_back();
}

// What was put aside last comes back into the list as that number.
void Reprend(int numero) {
  const int rang = PasARefaire();
  if (rename(CheminRefaire(rang).c_str(), CheminInstantane(numero).c_str()) != 0) return;
  Refaits.resize(base::Indice(rang));
  Faits.resize(base::Indice(numero - 1));
  Faits.push_back(std::move(Refaits.back()));
  Refaits.pop_back();
}

std::vector<Drapeau> SelectionCourante() {
  std::vector<Drapeau> selection;
  selection.reserve(Sequences.size());
  for (const SequenceInfo& f : Sequences) selection.push_back(f.Selection);
  return selection;
}

// What the snapshot of this number stands for, before it takes the place of the last one.
Changement ChangementCourant(int numero, bool autre, const std::string& reglages) {
  if (numero == 1) return {SorteChangement::Ouverture, 0};
  if (!autre)
    return {SelectionCourante() == DerniereSelection ? SorteChangement::Affichage : SorteChangement::Selection, 0};
  return ChangementEntre({Dernier.points, Dernier.sequences, Dernier.reglages, &Dernier.complements},
                         {TraceInitial, Sequences, reglages, &Complements});
}

void NotePas(int numero, const Changement& changement) {
  Faits.resize(base::Indice(numero - 1));
  const bool meme = changement.Muet() && !Faits.empty();
  PasHistorique pas{changement, meme ? Faits.back().apercu : nullptr};
  if (!meme) pas.apercu = std::make_shared<const std::vector<PointTrace>>(PointsApercu(TraceInitial));
  Faits.push_back(std::move(pas));
  if (Faits.size() > ApercusMax) Faits[Faits.size() - 1 - ApercusMax].apercu.reset();
  DerniereSelection = SelectionCourante();
}

// Whether there is something to go back to.
bool ResteUnPas() {
  std::vector<std::string> noms = ListeFichiers(DossierTemp, "OVL");
  std::erase_if(noms, [](const std::string& nom) { return nom.starts_with("."); });
  return !(noms.empty() || (noms.size() == 1 && noms.front() == "00001.OVL"));
}

template <typename... A>
void Appelle(const std::function<void(A...)>& crochet, A... arguments) {
  if (crochet) crochet(arguments...);
}

}  // namespace

std::string CheminInstantane(int numero) {
  std::string chiffres = std::to_string(numero);
  if (chiffres.size() < ChiffresNom) chiffres.insert(0, ChiffresNom - chiffres.size(), '0');
  return DansDossier(DossierTemp, chiffres + ".OVL");
}

int NumeroInstantane() { return Numero(DernierNom()); }

ResultatInstantane PrendInstantane() {
  ResultatInstantane r;
  if (DossierTemp.empty()) return r;
  const std::string dernierNom = DernierNom();
  const int n = Numero(dernierNom);
  r.bouton = n >= 2;
  if (n >= DernierInstantane) return r;
  const std::string chemin = CheminInstantane(n + 1);
  const std::string avant = dernierNom.empty() ? "" : DansDossier(DossierTemp, dernierNom);
  if (DejaVide(avant)) return r;
  const bool due = std::exchange(ImageDue, false);
  NoteDessin(FichierCourant);
  const PendantInstantane pendant(chemin);
  std::string reglages = LignesReglages(chemin);
  const bool autre = !MemeEtat(reglages);
  if (due && !autre) return r;
  const Changement changement = ChangementCourant(n + 1, autre, reglages);
  if (!avant.empty() && Inchange(IdentiteDe(avant), reglages) && link(avant.c_str(), chemin.c_str()) == 0) {
    r.lie = true;
  } else {
    r.erreur = EcrireProjet(chemin);
    if (!r.erreur.empty()) return r;
    r.lie = !avant.empty() && Reunit(avant, chemin);
    Dernier = {IdentiteDe(chemin), std::move(reglages), Svc.MarqueDecimale, TraceInitial, Sequences, Complements};
  }
  r.numero = n + 1;
  r.bouton = r.numero >= 2;
  NotePas(r.numero, changement);
  if (autre) OublieRefaire();
  if (ATenir) OteReprise(*ATenir);
  ATenir.reset();
  return r;
}

void OteApresInstantane(const Reprise& reprise) {
  if (NumeroInstantane() > 0) return OteReprise(reprise);
  ATenir = reprise;
}

namespace {

// What stands now has been put back: the snapshot that follows is no change of the user's. The file is another one
// than that of the last snapshot.
void TientPourDernier(const std::string& chemin) {
  const PendantInstantane pendant(chemin);
  Dernier = {Identite{}, LignesReglages(chemin), Svc.MarqueDecimale, TraceInitial, Sequences, Complements};
}

// The state of a snapshot into the document, with all that hangs on it. Where the user takes it back while its
// traces are computed, all is as before, the list of snapshots included; no other change comes in between, since
// the one step that would stand for both is the state gone to. The list of snapshots ends with it; that
// which its picture leaves behind it goes again, now or once the picture has come.
ResultatAnnulation RemetEtat(int numero, const std::string& chemin, const CrochetsAnnulation& crochets,
                             const std::function<void()>& range) {
  ResultatAnnulation r;
  PasseTraces passe(
      [reglages = Regl, table = Table, materiau = MateriauCourant] {
        Regl = reglages;
        Table = table;
        MateriauCourant = materiau;
      },
      Entretemps::Rien);
  Appelle(crochets.MontreBouton, false);
  const std::string garde = FichierCourant;
  FichierCourant = chemin;
  r.lu = LireProjet(FichierCourant);
  // A snapshot that can't be read leaves the document; only the count was lost.
  if (!r.lu) NbPoints = base::Compte(TraceInitial.size());
  LitReglagesDocument();
  r.fait = PasseTraces::Faite(passe.SuitTout());
  if (!r.fait) {
    Appelle(crochets.MontreBouton, true);
    return r;
  }
  MarqueTravail();
  Appelle(crochets.RemplitArbres);
  EncombrementGeneral();
  PointCourantX = 0;
  PointCourantY = 0;
  Appelle(crochets.DeuxiemeDrapeauOutil);
  const std::string suivant = CheminInstantane(numero + 1);
  FichierCourant = suivant;
  range();
  TientPourDernier(suivant);
  Appelle(crochets.Dessin);
  FichierCourant = garde;
  ImageDue = NumeroInstantane() <= numero;
  Supprime(numero + 1);
  Faits.resize(base::Indice(numero));
  r.bouton = ResteUnPas();
  Appelle(crochets.MontreBouton, true);
  return r;
}

}  // namespace

ResultatAnnulation VaAuPas(int numero, const CrochetsAnnulation& crochets) {
  const int n = NumeroInstantane();
  const int derriere = PasARefaire();
  if (numero < 1 || numero == n || numero > n + derriere) return {};
  if (numero < n) {
    return RemetEtat(numero, CheminInstantane(numero), crochets, [n, numero] {
      for (int pas = n; pas > numero; --pas) MetDeCote(pas);
    });
  }
  return RemetEtat(numero, CheminRefaire(derriere + 1 - (numero - n)), crochets, [n, numero] {
    for (int pas = n + 1; pas <= numero; ++pas) Reprend(pas);
  });
}

ResultatAnnulation mnu_Undo(const CrochetsAnnulation& crochets) {
  const int n = NumeroInstantane();
  if (n < 2) return {};  // the button isn't offered then
  return VaAuPas(n - 1, crochets);
}

int PasARefaire() {
  int rang = 0;
  while (!DossierTemp.empty() && IdentiteDe(CheminRefaire(rang + 1)).taille >= 0) ++rang;
  return rang;
}

ResultatAnnulation mnu_Redo(const CrochetsAnnulation& crochets) {
  return VaAuPas(NumeroInstantane() + 1, crochets);
}

Historique HistoriqueCourant() {
  Historique h;
  h.present = NumeroInstantane();
  h.pas = Faits;
  h.pas.resize(base::Indice(h.present));
  std::vector<PasHistorique> derriere = Refaits;
  derriere.resize(base::Indice(PasARefaire()));
  h.pas.insert(h.pas.end(), derriere.rbegin(), derriere.rend());
  return h;
}

int PasAvantChangement(const Historique& historique) {
  int pas = historique.present;
  while (pas > 1 && historique.pas[base::Indice(pas - 1)].changement.Muet()) --pas;
  return std::max(pas - 1, 0);
}

int PasApresChangement(const Historique& historique) {
  for (std::size_t i = base::Indice(historique.present); i < historique.pas.size(); ++i) {
    if (!historique.pas[i].changement.Muet()) return base::Compte(i + 1);
  }
  return 0;
}

void EffaceTousInstantanes() {
  Oublie();
  if (DossierTemp.empty()) return;
  OublieRefaire();
  for (const std::string& nom : ListeFichiers(DossierTemp, "OVL")) {
    const std::string chemin = DansDossier(DossierTemp, nom);
    if (unlink(chemin.c_str()) == 0) continue;
    chmod(chemin.c_str(), 0600);  // its attributes first, where they stand in the way
    unlink(chemin.c_str());
  }
}

}  // namespace ovelin
