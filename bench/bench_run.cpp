// A run on the virtual board in real time, in the main window without a screen: whether its buffer ever runs dry
// while the picture of 100,000 points is drawn twice a second and a box and the colour dialog stand open, how fast
// a stop reaches the board, how soon the first record goes out, processor and memory.
//   build/bench/bin/bench_run [ROWS]      20,000 rows of 0.2 mm at 15 mm/s take 4 min 27 s
// Wanted: no starved tick, at least 7 records ahead, a stop within 50 ms, the first record within 1 s, less than 10
// % of a core.
#include <sys/resource.h>
#include <unistd.h>

#include <QApplication>
#include <QColorDialog>
#include <QMouseEvent>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "bench/Formes.h"
#include "bench/SansEcran.h"
#include "closed/CarteVirtuelle.h"
#include "closed/ZenikCom.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/ui/Fenetres.h"
#include "core/ui/FiltreStop.h"
#include "core/ui/ServicesQt.h"
#include "machine/Module_Table.h"
#include "run/Module_Decoupe.h"
#include "run/Module_Lancement.h"
#include "run/Module_Planificateur.h"
#include "toolpath/chemins/Etendues.h"
#include "workspace/ui/F_Representation.h"

namespace {

using namespace ovelin;

double Heure() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// s of processor time of the whole program, the board's own among them
double Processeur() {
  rusage u{};
  getrusage(RUSAGE_SELF, &u);
  const auto secondes = [](const timeval& t) {
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) * 1e-6;
  };
  return secondes(u.ru_utime) + secondes(u.ru_stime);
}

double MemoireMo() {
  std::ifstream f("/proc/self/statm");
  long toutes = 0, residentes = 0;
  f >> toutes >> residentes;
  return static_cast<double>(residentes) * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

// A link that notes when the first stop goes out, and the longest way between two exchanges.
class Ecoute : public zenikcom::Liaison {
 public:
  explicit Ecoute(std::unique_ptr<zenikcom::Liaison> liaison) : liaison_(std::move(liaison)) {}
  std::int32_t EstConnectee() override { return liaison_->EstConnectee(); }
  std::int32_t Envoie(zenikcom::TamponOctets& tampon, std::int32_t& mode) override {
    if (tampon[1] == 'S' && Stop == 0) Stop = Heure();
    return liaison_->Envoie(tampon, mode);
  }
  void Ferme() override { liaison_->Ferme(); }
  static double Stop;

 private:
  std::unique_ptr<zenikcom::Liaison> liaison_;
};
double Ecoute::Stop = 0;

struct Banc {
  std::shared_ptr<zenikcom::CarteVirtuelle> carte;

  void Branche(bool rapide) {
    zenikcom::ConditionsCarte c;
    c.rapide = rapide;
    c.horloge = [] { return static_cast<std::int64_t>(Heure() * 1e9); };
    c.attend = [](std::int64_t ns) { Svc.Attend(static_cast<double>(ns) * 1e-9); };
    carte = zenikcom::CreeCarteVirtuelle(std::move(c));
    CdeZENIK = std::make_unique<ClsCdeZENIK>(std::make_unique<Ecoute>(zenikcom::LiaisonVirtuelle(carte)));
    CdeZENIK->ChargeParametres();
    CdeZENIK->TableVerif();
    Ecoute::Stop = 0;
  }
};

// The drawing of that many points and its tool path, half a millimetre aside.
void Charge(int points) {
  Doc = Document{};
  Sequences.clear();
  for (const auto& contour : banc::Contours(points / 1000, 1000)) {
    TraceInitial.insert(TraceInitial.end(), contour.begin(), contour.end());
    Sequences.push_back({contour[0].Seq, Faux, -3, Vrai, 1, Faux});
    SequenceDecalee trace{contour[0].Seq, contour};
    for (PointTrace& p : trace.Points) p.X += 0.5F;
    TraceDecale.push_back(std::move(trace));
  }
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  MesureDocument(Doc);
  ProfPasse = -3;
  ProfFraisage = -3;
  HautDeg = 5;
}

// There and back in rows of 0.2 mm.
void PlanifieVaEtVient(int lignes) {
  InitDecoupe();
  for (int i = 0; i < lignes; ++i) AjoutDeplacementRelatif(i / 100 % 2 == 0 ? 0.2F : -0.2F, 0, Vrai, 15);
}

void Presse(QWidget& bouton) {
  const QPointF milieu = QRectF(bouton.rect()).center();
  QCoreApplication::postEvent(&bouton, new QMouseEvent(QEvent::MouseButtonPress, milieu, bouton.mapToGlobal(milieu),
                                                       Qt::LeftButton, Qt::LeftButton, Qt::NoModifier));
}

void FermeModaleApres(int ms) {
  QTimer::singleShot(ms, [] {
    if (QWidget* modale = QApplication::activeModalWidget()) modale->close();
  });
}

void Fraise(int lignes) {
  PlanifieVaEtVient(lignes);
  StopDemande = Faux;
  ArretRampe = Vrai;
  Vitesse_Mat_H = 15;
  float vRef = 15;
  LanceDecoupe(vRef, AppelantFraisage);
}

void DitFlux(const char* quoi, const zenikcom::CarteVirtuelle& carte, double secondes, double processeur) {
  const zenikcom::CompteursCarte c = const_cast<zenikcom::CarteVirtuelle&>(carte).Compteurs();
  std::printf("%-34s %6lld records, %lld starved ticks, least fill %d, %6.1f s, %4.1f %% of a core%s\n", quoi,
              static_cast<long long>(c.commences), static_cast<long long>(c.ticksFamine), c.remplissageMini,
              secondes, 100 * processeur / secondes,
              c.ticksFamine > 0 || c.remplissageMini < 7 ? "  <-- too slow" : "");
  std::fflush(stdout);
}

// Quiet: nothing but the run.
void Tranquille(Banc& banc) {
  banc.Branche(false);
  const double debut = Heure(), travail = Processeur();
  Fraise(1500);
  DitFlux("quiet, 1,500 rows", *banc.carte, Heure() - debut, Processeur() - travail);
}

void Charge(Banc& banc, ImagePB1& image, QWidget& fenetre, int lignes) {
  banc.Branche(false);
  QTimer redessine;
  QObject::connect(&redessine, &QTimer::timeout, [&image] { image.Dessin(); });
  redessine.start(500);
  QTimer::singleShot(5000, [] {
    FermeModaleApres(3000);
    Message(Textes::MemoireManque, Icone::Information);
  });
  QTimer::singleShot(11'000, [&fenetre] {
    FermeModaleApres(3000);
    ChoisitCouleur(&fenetre, 255);
  });
  const double debut = Heure(), travail = Processeur();
  Fraise(lignes);
  DitFlux("picture twice a second, two dialogs", *banc.carte, Heure() - debut, Processeur() - travail);
}

// From the press to the stop on its way to the board, ms.
void MesureStop(Banc& banc, QWidget& bouton, bool boite) {
  double pire = 0;
  for (int fois = 0; fois < 10; ++fois) {
    banc.Branche(false);
    double presse = 0;
    if (boite) {
      QTimer::singleShot(200, [] {
        FermeModaleApres(900);
        Message(Textes::MemoireManque, Icone::Information);
      });
    }
    QTimer::singleShot(500 + 7 * fois, [&] {
      presse = Heure();
      Presse(bouton);
    });
    Fraise(4000);
    pire = std::max(pire, 1000 * (Ecoute::Stop - presse));
  }
  std::printf("%-34s %.1f ms at most in ten%s\n", boite ? "stop, with a box open" : "stop", pire,
              pire > 50 ? "  <-- too slow" : "");
  std::fflush(stdout);
}

void MesureDepart(Banc& banc, int points) {
  Charge(points);
  banc.Branche(false);
  double premier = 0;
  Vue_Decoupe.Accepte = [&](std::int32_t, float&) {
    if (premier != 0) return;
    premier = Heure();
    StopDemande = Vrai;
  };
  const double debut = Heure();
  Vitesse_Mat_H = 15;
  std::string vitesse = "15";
  LanceFraisage(vitesse, EnvoiDirect);
  Vue_Decoupe = VueDecoupe{};
  AbandonneFraisage();
  std::printf("%-34s %d rows, first record after %.0f ms%s\n", "start", NbDeplacements, 1000 * (premier - debut),
              premier - debut > 1 ? "  <-- too slow" : "");
  std::fflush(stdout);
}

void MesureMemoire(Banc& banc, int points) {
  Charge(points);
  banc.Branche(true);
  const double avant = MemoireMo();
  double pendant = 0;
  Vue_Decoupe.Avance = [&](double, double) { pendant = std::max(pendant, MemoireMo()); };
  const double debut = Heure();
  std::string vitesse = "15";
  LanceFraisage(vitesse, EnvoiDirect);
  Vue_Decoupe = VueDecoupe{};
  AbandonneFraisage();
  std::printf("%-34s %d rows on a board as fast as it can, %.1f s, %.0f MB more than the drawing's %.0f\n",
              "memory", NbDeplacements, Heure() - debut, pendant - avant, avant);
}

void Mesure(int lignes) {
  const auto dossier = std::filesystem::temp_directory_path() / ("ovelin-run-" + std::to_string(getpid()));
  std::filesystem::create_directories(dossier);
  DossierProgramme = dossier.string();
  std::ofstream(dossier / "OVELIN.ini")
      << "[OVELIN]\r\nTableDefaut=Banc\r\n[table_Banc]\r\nTB_SAV_12=20\r\nTB_SAV_13=20\r\nTB_SAV_14=20\r\n"
         "TB_SAV_15=40\r\nTB_SAV_16=40\r\nTB_SAV_17=40\r\n";
  PrepareDossierTemp();
  InstalleServicesQt();
  // A box that nobody here closes would hold everything.
  Svc.Montre = [montre = Svc.Montre](const BoiteMessage& boite) {
    if (boite.cle == Textes::MemoireManque.Cle()) return montre(boite);
    if (boite.boutons == Boutons::OuiNon) return Reponse::Oui;  // a board gets the table of this machine
    std::fprintf(stderr, "unexpected: %s\n", boite.texte.c_str());
    return Reponse::Ok;
  };
  TableDefaut = "Banc";
  ChargeGlobalesTable();
  F_Representation fenetre;
  Svc.Dimensionne = [](DemandeDimension&) {};
  fenetre.DossierDocuments.clear();
  fenetre.resize(1280, 800);
  fenetre.Form_Load("");
  auto* image = fenetre.findChild<ImagePB1*>();
  auto* bouton = fenetre.findChild<BoutonStop*>();
  TableDefaut = "Banc";
  ChargeGlobalesTable();
  Charge(100'000);
  image->MetEnPage();
  image->Dessin();

  Banc banc;
  Tranquille(banc);
  MesureStop(banc, *bouton, false);
  MesureStop(banc, *bouton, true);
  MesureDepart(banc, 100'000);
  MesureMemoire(banc, 1'000'000);
  Charge(100'000);
  Charge(banc, *image, fenetre, lignes);

  Doc = Document{};
  CdeZENIK = std::make_unique<ClsCdeZENIK>();
  fenetre.close();
  OteDossierTemp();
  std::error_code erreur;
  std::filesystem::remove_all(dossier, erreur);
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application = banc::SansEcran(argc, argv);
  Mesure(argc > 1 ? std::atoi(argv[1]) : 20'000);
  return 0;
}
