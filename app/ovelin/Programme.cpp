#include "app/ovelin/Programme.h"

#include <QNetworkProxyFactory>
#include <QSessionManager>
#include <chrono>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <new>
#include <system_error>
#include <utility>
#include <vector>

#include "app/ovelin/Association.h"
#include "app/ovelin/Composition.h"
#include "app/ovelin/Ecran.h"
#include "controller/ChoixCarte.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/Coeurs.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "core/ValeursCles.h"
#include "core/ui/PageChoixCarte.h"
#include "core/ui/ServicesQt.h"
#include "core/ui/Theme.h"
#include "run/Module_Lancement.h"
#include "workspace/FinCycle.h"

namespace ovelin {

namespace {

constexpr int Fait = 0, AutreCopieCourt = 1, Usage = 2;
constexpr int PeriodeSurveillance = 500;  // ms

// The machine stops before the program does, whatever has gone wrong.
void ArreteMachine() {
  if (CdeZENIK && CdeZENIK->IsAvailable()) CdeZENIK->Reset();
}

[[noreturn]] void FinInattendue() {
  if (ArretFatal != nullptr) ArretFatal();
  const char* raison = "unexpected end";
  try {
    if (const std::exception_ptr lancee = std::current_exception()) std::rethrow_exception(lancee);
  } catch (const std::exception& erreur) {
    std::fprintf(stderr, "OVELIN: %s\n", erreur.what());
    std::abort();
  } catch (...) {
    raison = "unknown exception";
  }
  std::fprintf(stderr, "OVELIN: %s\n", raison);
  std::abort();
}

bool CompteurPrecis() {
  using Horloge = std::chrono::steady_clock;
  return std::chrono::duration<double>(Horloge::duration(1)).count() <= 1e-6;
}

void MontreReglages(const std::string& raison) {
  MessageFichier(Textes::ReglagesNonEcrits, "\n" + raison, Icone::Exclamation, CheminIni());
}

std::string DossierCourant() {
  std::error_code erreur;
  return std::filesystem::current_path(erreur).string();
}

std::string DossierExecutable(const char* argv0) {
  std::error_code erreur;
  const std::filesystem::path chemin = std::filesystem::read_symlink("/proc/self/exe", erreur);
  return (erreur ? std::filesystem::path(argv0) : chemin).parent_path().string();
}

// The virtual board keeps its tables in a file, which may have become unwritable.
void SignaleFichierCarte() {
  if (const auto refus = RefusFichierCarte()) DitRefus({*refus});
}

// Texts before the program has started: the language of the call or of the system.
void PrepareTextes(const OptionsProgramme& options, const char* argv0) {
  TrouveDossiersProduit(DossierExecutable(argv0));
  Regl.Langue = options.langue.empty() ? LangueDuSysteme(LocaleSysteme()) : options.langue;
}

}  // namespace

bool Application::notify(QObject* objet, QEvent* e) {
  try {
    return QApplication::notify(objet, e);
  } catch (const std::bad_alloc&) {
    Message(Textes::MemoireManque, Icone::Critique);
  } catch (...) {
    FinInattendue();
  }
  return false;
}

namespace {

std::vector<AppareilPresent> ListeAppareils() {
  std::vector<AppareilPresent> presents;
  for (const zenikcom::AppareilUsb& a : zenikcom::AppareilsUsb()) {
    char identite[16];
    std::snprintf(identite, sizeof identite, "%04X:%04X", a.identite.vendeur, a.identite.produit);
    presents.push_back({identite, a.fabricant + " " + a.nom});
  }
  return presents;
}

}  // namespace

Programme::Programme(OptionsProgramme options)
    : options_(std::move(options)),
      // Not over a pass, a dialog or a machine that moves: the question can wait.
      miseAJour_(
          [this] {
            return fenetre_ != nullptr && !PasseEnCours() && QApplication::activeModalWidget() == nullptr &&
                   !OperationCarte;
          },
          [](const std::string& reponse) {
            TraiteMiseAJour(reponse, [](const std::string& adresse) { Svc.OuvreParBureau(adresse); });
          }) {
  Quitte = [](int statut) { std::_Exit(statut); };
  NombreCoeurs = CoeursDeLaMachine();
  InstalleServicesQt();
  InstalleFenetres();
  AppareilsPresents = ListeAppareils;
  CarteReglee = [] { ChangeCarte(LitReglageCarte(), MoyensOrdinaires()); };
  ArretFatal = ArreteMachine;
  surveille_.setInterval(PeriodeSurveillance);
  QObject::connect(&surveille_, &QTimer::timeout, &surveille_, [this] {
    if (PasseEnCours() || QApplication::activeModalWidget() != nullptr) return;
    SignaleReglages();
    SignaleFichierCarte();
  });
}

Programme::~Programme() {
  fenetre_.reset();
  ArretFatal = nullptr;
  AppareilsPresents = nullptr;
  CarteReglee = nullptr;
  FermeCarte();
  OteDossierTemp();
  LibereCopie();
}

CrochetsDemarrage Programme::Crochets() {
  CrochetsDemarrage c;
  c.MarqueDecimale = [] { return Svc.MarqueDecimale; };
  c.CompteurPrecis = CompteurPrecis;
  c.Associe = [](const Association& a) { InscritAssociation(a, LieuDuBureau(a)); };
  c.Connecte = ReseauPresent;
  c.DemandeMiseAJour = [this](const std::string& adresse) { miseAJour_.Demande(adresse); };
  c.CreeCarte = [] { DitRefus(InstalleCarte(MoyensOrdinaires())); };
  c.CartePresente = [] { return CdeZENIK->IsAvailable(); };
  c.ResetBuffer = [] { CdeZENIK->ResetBuffer(); };
  c.Touche = [] { return CdeZENIK->Touche(); };
  c.TableVerif = [] {
    CdeZENIK->TableVerif();
    SignaleFichierCarte();
  };
  c.MontreFenetre = [this] {
    fenetre_ = std::make_unique<F_Representation>();
    fenetre_->Form_Load(options_.dessin);
    if (!options_.depose.empty() && !fenetre_->Depose(options_.depose)) {
      MessageFichier(Textes::ExtensionInconnue, "", Icone::Exclamation, options_.depose);
    }
  };
  return c;
}

bool Programme::Demarre() {
  signaux_ = std::make_unique<Signaux>([this](int signal) { TermineParSignal(signal); });
  OptionsDemarrage options;
  options.dossierExecutable = QCoreApplication::applicationDirPath().toStdString();
  options.config = options_.config;
  options.locale = LocaleSysteme();
  options.langue = options_.langue;
  const ResultatDemarrage r = DemarreCycle(options, Crochets());
  if (!r.lance) return false;
  if (!r.raison.empty()) {
    MontreReglages(r.raison);
    dejaDite_ = Magasin.DerniereErreur;
  }
  std::vector<ValeurIllisible> valeurs = ReglagesIllisibles();
  std::erase_if(valeurs, [](const ValeurIllisible& v) { return v.fichier != CheminIni(); });
  AvertitValeurs(valeurs);
  surveille_.start();
  return true;
}

void Programme::TermineParSignal(int signal) {
  constexpr int StatutSignal = 128;
  if (OperationCarte) ArreteAvantFin();
  if (fenetre_) fenetre_->TermineSansQuestion();
  std::fflush(nullptr);
  Quitte(StatutSignal + signal);
}

bool Programme::FinDeSession(bool peutDemander) {
  if (!fenetre_) return true;
  if (peutDemander) {
    if (OperationCarte) ArreteAvantFin();
    return fenetre_->PeutFinir();
  }
  TermineParSignal(SIGTERM);
  return true;
}

void Programme::SignaleReglages() {
  const std::string raison = std::exchange(Magasin.DerniereErreur, "");
  if (raison.empty() || raison == dejaDite_) return;
  dejaDite_ = raison;
  MontreReglages(CheminIni() + ": " + raison);
}

int LanceProgramme(int argc, char** argv) {
  OptionsProgramme options = LitOptions({argv + 1, argv + argc}, DossierCourant());
  if (!options.refus.empty()) {
    std::fprintf(stderr, "%s\n%s", options.refus.c_str(), TexteAide().c_str());
    return Usage;
  }
  if (options.aide || options.version) {
    std::fputs(options.aide ? TexteAide().c_str() : (TexteVersion() + "\n").c_str(), stdout);
    return Fait;
  }
  PrepareTextes(options, argv[0]);
  if (!EcranPossible(LitAffichage(options.plateforme))) {
    std::fprintf(stderr, "%s\n", TexteSansEcran("").c_str());
    return SansEcran;
  }
  std::set_terminate(FinInattendue);
  QCoreApplication::setApplicationName(QStringLiteral("ovelin"));
  QCoreApplication::setApplicationVersion(QString::fromStdString(TexteVersion()));
  QGuiApplication::setDesktopFileName(QStringLiteral("ovelin"));
  std::unique_ptr<Application> application;
  {
    const GardeEcran garde;
    application = std::make_unique<Application>(argc, argv);
  }
  std::setlocale(LC_NUMERIC, "C");  // numbers in files have their own mark; see core/Nombres.h
  QNetworkProxyFactory::setUseSystemConfiguration(true);
  Application::setWindowIcon(IconeProgramme(QStringLiteral("OVELIN-2")));
  Programme programme(std::move(options));
  // At once, not from the queue: the session waits for the answer.
  QObject::connect(
      application.get(), &QGuiApplication::commitDataRequest, application.get(),
      [&programme](QSessionManager& session) {
        const bool peutDemander = session.allowsInteraction();
        if (!programme.FinDeSession(peutDemander)) session.cancel();
        if (peutDemander) session.release();
      },
      Qt::DirectConnection);
  if (!programme.Demarre()) return AutreCopieCourt;
  const int statut = Application::exec();
  programme.SignaleReglages();
  return statut;
}

}  // namespace ovelin
