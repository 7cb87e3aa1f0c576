// captures FOLDER [LANGUAGE...]: a PNG of every scene in each language (fr and en without any), light and dark, in
// each size; what finds no room in its control is told on standard error. The scale is Qt's (QT_SCALE_FACTOR).
// captures --douze POINTS FOLDER [LANGUAGE...]: the twelve scenes of the work alone, with a drawing of so many
// points, each beside the picture of lines alone that the button of the quiet one gives back (NAME-lignes).
// captures --images NAME,NAME,... FOLDER LANGUAGE: these pictures alone, light and in the first size of their
// scene, as NAME.png; the status is 1 when one of them is no scene's.
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QStyleFactory>
#include <QTabWidget>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <set>

#include "app/ovelin/Composition.h"
#include "controller/ChoixCarte.h"
#include "core/Dossiers.h"
#include "core/Etat.h"
#include "core/Fichiers.h"
#include "core/Services.h"
#include "core/ui/ServicesQt.h"
#include "core/ui/Theme.h"
#include "tests/ui/captures/DouzeScenes.h"
#include "tests/ui/captures/Scenes.h"
#include "tests/ui/support/SupportUi.h"
#include "workspace/Module_Demarrage.h"
#include "workspace/Module_Ouverture.h"

namespace {

// Nobody is there to answer: boxes are told once and take their first button.
void Services() {
  ovelin::InstalleServicesQt();
  ovelin::Svc.Montre = [](const ovelin::BoiteMessage& b) {
    static std::set<std::string> dites;
    if (dites.insert(b.section + "/" + b.cle).second) {
      std::fprintf(stderr, "%s/%s: %s\n", b.section.c_str(), b.cle.c_str(), b.texte.c_str());
    }
    return b.boutons == ovelin::Boutons::OuiNon ? ovelin::Reponse::Oui : ovelin::Reponse::Ok;
  };
  ovelin::Svc.Dimensionne = [](ovelin::DemandeDimension&) {};
  ovelin::Svc.Bip = [] {};
  // every command in its menu and on its tool bar
  ovelin::InstalleTable(ovelin::TableFenetres());
  ovelin::OuvreFenetre = [](const std::string&, QWidget*) { return ovelin::IssueFenetre::Annulee; };
}

// The program as after its first start, so that no picture depends on the one before.
class Programme {
 public:
  explicit Programme(const std::string& langue) {
    ovelin::RemetTout();
    Services();
    ovelin::Svc.MarqueDecimale = langue == "en" ? '.' : ',';
    ovelin::OptionsDemarrage options;
    options.dossierExecutable = QApplication::applicationDirPath().toStdString();
    options.config = reglages_.path().toStdString();
    options.locale = "C";
    options.langue = langue;
    ovelin::DemarreProgramme(options);
    ovelin::PrepareDossierTemp();
    essai::ChoisitLangue(langue);
    ovelin::InstalleCarte(ovelin::MoyensOrdinaires());  // the virtual one, as where nothing is plugged in
  }
  ~Programme() {
    ovelin::FermeCarte();
    ovelin::OteDossierTemp();
  }

  // A copy of the sample, as an opening may rewrite its line ends: by the command of the window, or into the
  // document alone.
  void Ouvre(const std::string& exemple, QWidget* fenetre) {
    const QString copie = reglages_.filePath(QString::fromStdString(exemple));
    QFile::copy(QString::fromStdString(essai::DossierExemples() + "/" + exemple), copie);
    if (fenetre == nullptr) {
      ovelin::OptionsOuverture options;
      options.ecritFichier = options.rendUniforme = false;
      ovelin::mnu_Ouvrir(copie.toStdString(), options);
      return;
    }
    ovelin::Svc.ChoisitFichier = [copie](const ovelin::DialogueFichier&) { return copie.toStdString(); };
    fenetre->findChild<QAction*>("mnu_Ouvrir")->trigger();
  }
  Programme(const Programme&) = delete;
  Programme& operator=(const Programme&) = delete;

 private:
  QTemporaryDir reglages_;
};

// Where a picture belongs, and what it shows.
struct Cadrage {
  QString dossier;
  std::string langue;
  bool sombre;
  QStringList* images = nullptr;  // those that are still wanted, by name; all when there is no list
};

// The picture by its bare name, if it is wanted.
void EnregistreImage(QWidget& fenetre, const QString& nom, const Cadrage& c) {
  if (c.images->removeAll(nom) > 0)
    fenetre.grab().save(c.dossier + QLatin1Char('/') + nom + QStringLiteral(".png"));
}

void Enregistre(QWidget& fenetre, const QString& scene, const Cadrage& c) {
  if (c.images != nullptr) return EnregistreImage(fenetre, scene, c);
  const QString nom =
      QStringLiteral("%1-%2-%3-%4x%5")
          .arg(scene, QString::fromStdString(c.langue), c.sombre ? QStringLiteral("dark") : QStringLiteral("light"))
          .arg(fenetre.width())
          .arg(fenetre.height());
  const qreal echelle = fenetre.devicePixelRatio();
  fenetre.grab().save(c.dossier + QLatin1Char('/') + nom +
                      (echelle > 1 ? QStringLiteral("@%1x.png").arg(echelle) : QStringLiteral(".png")));
  if (c.sombre) return;
  for (const std::string& faute : essai::TextesCoupes(fenetre)) {
    std::fprintf(stderr, "%s: %s\n", nom.toUtf8().constData(), faute.c_str());
  }
}

// One picture, or one of each page of a window with tabs, called by the name of the page.
void Photographie(QWidget& fenetre, const QString& scene, const Cadrage& c) {
  auto* onglets = fenetre.findChild<QTabWidget*>();
  if (onglets == nullptr) return Enregistre(fenetre, scene, c);
  for (int page = 0; page < onglets->count(); ++page) {
    onglets->setCurrentIndex(page);
    essai::Evenements();
    const QString nom = onglets->widget(page)->objectName().section(QLatin1Char('_'), 1).toLower();
    Enregistre(fenetre, scene + QLatin1Char('-') + nom, c);
  }
}

// Whether one of the wanted pictures may come out of this scene: its own, or one of a page of it.
bool Demandee(const captures::Scene& scene, const QStringList& images) {
  const QString nom = QString::fromStdString(scene.nom);
  return std::any_of(images.begin(), images.end(), [&nom](const QString& image) {
    return image == nom || image.startsWith(nom + QLatin1Char('-'));
  });
}

void Joue(const captures::Scene& scene, const Cadrage& c) {
  essai::ThemeSombreEssai(c.sombre);
  for (const QSize& voulue : scene.tailles) {
    Programme programme(c.langue);
    if (!scene.fichier.empty() && !scene.ouvreDedans) programme.Ouvre(scene.fichier, nullptr);
    const std::unique_ptr<QWidget> fenetre = scene.construit();
    const QSize taille = voulue.isValid() ? voulue : fenetre->sizeHint();
    essai::Montre(*fenetre, taille.width(), taille.height());
    if (!scene.fichier.empty() && scene.ouvreDedans) programme.Ouvre(scene.fichier, fenetre.get());
    if (scene.prepare) scene.prepare(*fenetre);
    essai::Evenements();
    Photographie(*fenetre, QString::fromStdString(scene.nom), c);
    fenetre->hide();
    if (c.images != nullptr) return;
  }
}

int Images(const QString& noms, const QString& dossier, const std::string& langue) {
  QStringList images = noms.split(QLatin1Char(','), Qt::SkipEmptyParts);
  for (const captures::Scene& scene : captures::Scenes()) {
    if (Demandee(scene, images)) Joue(scene, {dossier, langue, false, &images});
  }
  for (const QString& image : images) std::fprintf(stderr, "no scene: %s\n", image.toUtf8().constData());
  return images.isEmpty() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() == 5 && arguments[1] == QLatin1String("--images") && QDir().mkpath(arguments[3])) {
    return Images(arguments[2], arguments[3], arguments[4].toStdString());
  }
  const bool douze = arguments.size() > 2 && arguments[1] == QLatin1String("--douze");
  const qsizetype debut = douze ? 3 : 1;
  if (arguments.size() <= debut || !QDir().mkpath(arguments[debut])) {
    std::fprintf(stderr, "captures [--images NAME,NAME,... | --douze POINTS] FOLDER [LANGUAGE...]\n");
    return 2;
  }
  std::vector<std::string> langues;
  for (const QString& l : arguments.mid(debut + 1)) langues.push_back(l.toStdString());
  if (langues.empty()) langues = {"fr", "en"};

  for (const captures::Scene& scene : douze ? captures::DouzeScenes(arguments[2].toInt()) : captures::Scenes()) {
    for (const std::string& langue : langues) {
      for (const bool sombre : {false, true}) Joue(scene, {arguments[debut], langue, sombre});
    }
  }
  return 0;
}
