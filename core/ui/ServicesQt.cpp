#include "core/ui/ServicesQt.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCloseEvent>
#include <QColorDialog>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLocale>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QThread>
#include <QTimer>
#include <QUrl>
#include <chrono>
#include <cmath>
#include <deque>
#include <thread>

#include "base/SansCopie.h"
#include "core/Fichiers.h"
#include "core/Reglages.h"
#include "core/RunCourant.h"
#include "core/Textes.h"
#include "core/ui/AvisRun.h"
#include "core/ui/EntreeUtilisateur.h"
#include "core/ui/Fenetres.h"
#include "core/ui/FiltreStop.h"
#include "core/ui/LanguesPresentes.h"
#include "core/ui/Ouvrier.h"
#include "core/ui/Theme.h"
#include "core/ui/TraduitFenetre.h"
#include "core/ui/Veille.h"

namespace ovelin {

namespace {

QPointer<QWidget> Choisi;
int Passes = 0;
std::deque<std::function<void()>> Souhaits;

struct Bouton {
  QMessageBox::StandardButton bouton;
  Reponse reponse;
  CleTexte texte;
};
constexpr Bouton BoutonsConnus[] = {
    {QMessageBox::Ok, Reponse::Ok, Textes::BoutonOk},
    {QMessageBox::Cancel, Reponse::Annuler, Textes::BoutonAnnuler},
    {QMessageBox::Yes, Reponse::Oui, Textes::BoutonOui},
    {QMessageBox::No, Reponse::Non, Textes::BoutonNon},
};

// A box may name its answers itself: "lib140_Oui" beside "lib140".
QString TexteBouton(const Bouton& b, const BoiteMessage& boite) {
  const std::string suffixe(b.texte.Cle().substr(std::string_view("Btn").size()));
  return TraduireOu(boite.section.c_str(), QString::fromStdString(boite.cle + suffixe), TexteQt(b.texte));
}

QMessageBox::StandardButtons BoutonsDe(Boutons boutons) {
  switch (boutons) {
    case Boutons::OkAnnuler:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case Boutons::OuiNon:
      return QMessageBox::Yes | QMessageBox::No;
    case Boutons::OuiNonAnnuler:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case Boutons::Ok:
      break;
  }
  return QMessageBox::Ok;
}

QMessageBox::Icon IconeDe(Icone icone) {
  switch (icone) {
    case Icone::Information:
      return QMessageBox::Information;
    case Icone::Question:
      return QMessageBox::Question;
    case Icone::Exclamation:
      return QMessageBox::Warning;
    case Icone::Critique:
      return QMessageBox::Critical;
    case Icone::Aucune:
      break;
  }
  return QMessageBox::NoIcon;
}

// A word that is longer than a line of a box, a path above all, may be broken behind its strokes: a box as wide as
// the path would go beyond the screen. Other texts stay as they are.
QString Cassable(const QString& texte) {
  constexpr int MotMax = 60;
  constexpr QChar Cassure(0x200B);  // of no width
  static const QRegularExpression Blanc(QStringLiteral("\\s"));
  QString casse;
  for (qsizetype debut = 0; debut < texte.size();) {
    qsizetype fin = texte.indexOf(Blanc, debut);
    if (fin < 0) fin = texte.size();
    QString mot = texte.mid(debut, fin - debut);
    if (mot.size() > MotMax) mot.replace(QLatin1Char('/'), QStringLiteral("/") + Cassure);
    casse += mot + texte.mid(fin, 1);
    debut = fin + 1;
  }
  return casse;
}

Reponse MontreBoite(const BoiteMessage& boite) {
  const std::unique_ptr<QMessageBox> box = FaitBoite(boite, Proprietaire());
  const int appuye = box->exec();
  for (const Bouton& b : BoutonsConnus) {
    if (b.bouton == appuye) return b.reponse;
  }
  return boite.boutons == Boutons::OuiNon ? Reponse::Non : Reponse::Annuler;
}

// "*.DAT; *.PLT" as the dialog of the toolkit wants it, in both letter cases: its patterns tell them apart.
QStringList MotifsDe(const std::string& motif) {
  QStringList motifs;
  for (const QString& partie : QString::fromStdString(motif).split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
    const QString m = partie.trimmed();
    for (const QString& forme : {m, m.toLower(), m.toUpper()}) {
      if (!motifs.contains(forme)) motifs += forme;
    }
  }
  return motifs;
}

void PrepareDialogue(QFileDialog& dialogue, const DialogueFichier& demande) {
  dialogue.setObjectName(QString::fromStdString(demande.cle));
  dialogue.setWindowTitle(QString::fromStdString(demande.titre));
  dialogue.setAcceptMode(demande.enregistrer ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialogue.setFileMode(demande.enregistrer ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialogue.setOption(QFileDialog::DontConfirmOverwrite);  // asked here, in the language of the program
  dialogue.setLabelText(QFileDialog::Accept,
                        demande.enregistrer ? TexteQt(Textes::BoutonEnregistrer) : TexteQt(Textes::BoutonOuvrir));
  dialogue.setLabelText(QFileDialog::Reject, TexteQt(Textes::BoutonAnnuler));
  dialogue.setLabelText(QFileDialog::LookIn, TexteQt(Textes::DialogueDossier));
  dialogue.setLabelText(QFileDialog::FileName, TexteQt(Textes::DialogueNom));
  dialogue.setLabelText(QFileDialog::FileType, TexteQt(Textes::DialogueType));
  const QStringList motifs = MotifsDe(demande.motif);
  if (!motifs.isEmpty()) {
    const QString texte = demande.filtre.empty() ? motifs[0] : QString::fromStdString(demande.filtre);
    dialogue.setNameFilter(QStringLiteral("%1 (%2)").arg(texte, motifs.join(QLatin1Char(' '))));
    if (demande.enregistrer && motifs[0].startsWith(QLatin1String("*."))) {
      dialogue.setDefaultSuffix(motifs[0].mid(2));
    }
  }
  if (demande.propose.find('/') != std::string::npos) {
    dialogue.setDirectory(QString::fromStdString(DossierDe(demande.propose)));
    dialogue.selectFile(QString::fromStdString(NomDe(demande.propose)));
  } else if (!demande.propose.empty()) {
    dialogue.selectFile(QString::fromStdString(demande.propose));
  } else if (!demande.enregistrer) {
    // No earlier file: where users put what they have just been given, or else what is theirs.
    const QString bureau = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    dialogue.setDirectory(QFileInfo(bureau).isDir() ? bureau : QDir::homePath());
  }
}

// A file that is there is overwritten only after a yes; a no leads back to the dialog.
std::string ChoisitFichierQt(const DialogueFichier& demande) {
  QFileDialog dialogue(Proprietaire());
  PrepareDialogue(dialogue, demande);
  for (;;) {
    if (dialogue.exec() != QDialog::Accepted || dialogue.selectedFiles().isEmpty()) return "";
    std::string chemin = dialogue.selectedFiles().constFirst().toStdString();
    if (!demande.enregistrer || !FichierExiste(chemin)) return chemin;
    BoiteMessage question = BoiteDe(Textes::RemplaceFichier, Icone::Exclamation, Boutons::OuiNon);
    question.texte = TexteQt(Textes::RemplaceFichier).toStdString() + "\n" + chemin;
    question.titre.clear();
    if (MontreBoite(question) == Reponse::Oui) return chemin;
  }
}

std::string SaisitQt(CleTexte cle, const std::string& texte, const std::string& propose) {
  QInputDialog dialogue(Proprietaire());
  dialogue.setObjectName(QString::fromUtf8(cle.Cle().data(), static_cast<qsizetype>(cle.Cle().size())));
  dialogue.setWindowTitle(QStringLiteral("OVELIN"));
  dialogue.setInputMode(QInputDialog::TextInput);
  dialogue.setLabelText(QString::fromStdString(texte));
  dialogue.setTextValue(QString::fromStdString(propose));
  dialogue.setOkButtonText(TexteQt(BoutonsConnus[0].texte));
  dialogue.setCancelButtonText(TexteQt(BoutonsConnus[1].texte));
  return dialogue.exec() == QDialog::Accepted ? dialogue.textValue().toStdString() : "";
}

int ChoisitCouleurQt(QWidget* proprietaire, int couleur) {
  const QColor choisie = QColorDialog::getColor(EnCouleur(couleur), proprietaire);
  return choisie.isValid() ? DeCouleur(choisie) : -1;
}

// A round of events without the user's input. The toolkit leaves what comes from the screen in its queue for later;
// what reaches a widget another way (a file that is dropped, a press through the accessibility bus) is refused
// here. A box that a timer opens inside the round gets its input.
class Ronde : public QObject {
 public:
  Ronde() : modale_(QApplication::activeModalWidget()), dehors_(EnCours) {
    EnCours = this;
    qApp->installEventFilter(this);
  }
  // What was left in the queue is forgotten by the dispatcher until something new arrives: it has to be told.
  ~Ronde() override {
    EnCours = dehors_;
    if (auto* boucle = QAbstractEventDispatcher::instance()) boucle->wakeUp();
  }
  Ronde(const Ronde&) = delete;
  Ronde& operator=(const Ronde&) = delete;

  // In a run the input comes, so that a stop gets through; the rest of it is refused below.
  void Tourne() {
    QCoreApplication::processEvents(OperationCarte ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
  }

  bool eventFilter(QObject* objet, QEvent* e) override {
    if (EstUnArret(*objet, *e)) return false;
    const bool sien = DeLUtilisateur(e->type()) || (e->type() == QEvent::Timer && RepeteUnePression(*objet));
    return EnCours == this && QApplication::activeModalWidget() == modale_ && sien;
  }

  // None while it stands: the loops of a run take everything, wherever they run.
  class Suspend : base::SansCopie {
   public:
    Suspend() : avant_(EnCours) { EnCours = nullptr; }
    ~Suspend() { EnCours = avant_; }

   private:
    const Ronde* avant_;
  };

 private:
  // A movement alone changes nothing.
  static bool DeLUtilisateur(QEvent::Type type) {
    const EntreeUtilisateur entree = EntreeDe(type);
    return entree != EntreeUtilisateur::Aucune && entree != EntreeUtilisateur::Mouvement;
  }

  static const Ronde* EnCours;
  const QWidget* modale_;
  const Ronde* dehors_;
};
const Ronde* Ronde::EnCours = nullptr;

bool FilFenetres() { return qApp != nullptr && QThread::currentThread() == qApp->thread(); }

void LaisseEvenementsQt(Evenements mode) {
  if (!FilFenetres()) return;
  if (mode == Evenements::Tous) {
    const Ronde::Suspend suspend;
    QCoreApplication::processEvents();
    return;
  }
  const Passe passe;
  Ronde().Tourne();
}

// The kernel on a thread of its own; meanwhile rounds of events without the user's input, one every few
// milliseconds. A kernel that is done at once costs no round. Where the system has no thread left it runs here.
void EnFondQt(const std::function<void()>& noyau) {
  if (!FilFenetres()) return noyau();
  constexpr std::chrono::milliseconds Delai(8);
  const Passe passe;
  Ouvrier ouvrier(noyau);
  while (!ouvrier.Fini(Delai)) Ronde().Tourne();
  ouvrier.Rend();
}

void AttendQt(double secondes) {
  if (!(secondes > 0)) return;
  std::this_thread::sleep_for(std::chrono::duration<double>(std::min(secondes, 3600.0)));
}

// A path is looked at first: the desktop's own answer doesn't say what is wrong with it.
IssueBureau OuvreParBureauQt(const std::string& cible) {
  const QString texte = QString::fromStdString(cible);
  const QFileInfo fichier(texte);
  if (!fichier.isAbsolute()) {
    return QDesktopServices::openUrl(QUrl(texte)) ? IssueBureau::Ouvert : IssueBureau::SansAssociation;
  }
  if (!fichier.absoluteDir().exists()) return IssueBureau::CheminAbsent;
  if (!fichier.exists()) return IssueBureau::FichierAbsent;
  if (!fichier.isReadable()) return IssueBureau::SansDroit;
  return QDesktopServices::openUrl(QUrl::fromLocalFile(texte)) ? IssueBureau::Ouvert : IssueBureau::SansAssociation;
}

// One for the program, made at its first run.
void RetientVeilleQt(bool retenue) {
  static QPointer<RetenueVeille> Veille;
  if (qApp == nullptr) return;
  if (Veille == nullptr) {
    Veille = new RetenueVeille(QDBusConnection::sessionBus(), QDBusConnection::systemBus(), qApp);
  }
  Veille->Retient(retenue);
}

// One timer for the program; what it calls guards itself against being called inside itself.
void BatQt(const std::function<void()>& pas) {
  static QPointer<QTimer> Pouls;
  constexpr int Periode = 5;  // ms
  delete Pouls;
  if (!pas || qApp == nullptr) return;
  Pouls = new QTimer(qApp);
  Pouls->setTimerType(Qt::PreciseTimer);
  QObject::connect(Pouls, &QTimer::timeout, Pouls, pas);
  Pouls->start(Periode);
}

// Wishes that were put off, one at a time, as long as nothing long runs again.
void Livre() {
  while (Passes == 0 && !Souhaits.empty()) {
    const std::function<void()> souhait = std::move(Souhaits.front());
    Souhaits.pop_front();
    souhait();
  }
}

void ProgrammeLivraison() {
  if (!Souhaits.empty() && qApp != nullptr) QMetaObject::invokeMethod(qApp, Livre, Qt::QueuedConnection);
}

}  // namespace

void InstalleServicesQt() {
  TraduitBoiteAOutils();
  Svc.Montre = MontreBoite;
  Svc.ChoisitFichier = ChoisitFichierQt;
  Svc.Saisit = SaisitQt;
  Svc.LaisseEvenements = LaisseEvenementsQt;
  Svc.EnFond = EnFondQt;
  Svc.Horloge = [] {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
  };
  Svc.Attend = AttendQt;
  Svc.Bip = [] { QApplication::beep(); };
  Svc.OuvreParBureau = OuvreParBureauQt;
  Svc.RetientVeille = RetientVeilleQt;
  Svc.Battement = BatQt;
  Svc.MontreRun = [](bool enCours) { AvisRun::Unique().Note(enCours); };
  Svc.MarqueDecimale = QLocale::system().decimalPoint() == QLatin1String(",") ? ',' : '.';
  ChoisitCouleur = ChoisitCouleurQt;
}

std::unique_ptr<QMessageBox> FaitBoite(const BoiteMessage& boite, QWidget* proprietaire) {
  auto box = std::make_unique<QMessageBox>(proprietaire);
  box->setObjectName(QStringLiteral("Boite"));
  box->setWindowTitle(QString::fromStdString(boite.titre.empty() ? "OVELIN" : boite.titre));
  box->setTextFormat(Qt::PlainText);
  box->setText(Cassable(QString::fromStdString(boite.texte)));
  box->setIcon(IconeDe(boite.icone));
  const QMessageBox::StandardButtons boutons = BoutonsDe(boite.boutons);
  box->setStandardButtons(boutons);
  for (const Bouton& b : BoutonsConnus) {
    if (boutons.testFlag(b.bouton)) box->button(b.bouton)->setText(TexteBouton(b, boite));
  }
  box->setDefaultButton(boutons.testFlag(QMessageBox::Ok) ? QMessageBox::Ok : QMessageBox::Yes);
  const auto sortie = boutons.testFlag(QMessageBox::Cancel) ? QMessageBox::Cancel
                      : boutons.testFlag(QMessageBox::No)   ? QMessageBox::No
                                                            : QMessageBox::Ok;
  box->setEscapeButton(sortie);
  return box;
}

void ChoisitProprietaire(QWidget* fenetre) { Choisi = fenetre; }

QWidget* Proprietaire() {
  if (QWidget* modale = QApplication::activeModalWidget()) return modale;
  if (QWidget* devant = QApplication::activeWindow()) return devant;
  return Choisi;
}

bool RemetFermeture(QWidget& fenetre, QCloseEvent& demande) {
  if (!PasseEnCours()) return false;
  demande.ignore();
  const QPointer<QWidget> laquelle(&fenetre);
  Apres([laquelle] {
    if (laquelle != nullptr) laquelle->close();
  });
  return true;
}

bool PasseEnCours() { return Passes > 0; }

void Apres(const std::function<void()>& souhait) {
  Souhaits.push_back(souhait);
  if (Passes == 0) ProgrammeLivraison();
}

Passe::Passe() { ++Passes; }

Passe::~Passe() {
  if (--Passes == 0) ProgrammeLivraison();
}

}  // namespace ovelin
