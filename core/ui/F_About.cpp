#include "core/ui/F_About.h"

#include <QProcess>
#include <QStandardPaths>

#include "core/Aide.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/Types.h"
#include "core/ui/Fabrique.h"
#include "core/ui/Fenetres.h"
#include "core/ui/Theme.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_About";
constexpr const char* PageAide = "/Aide/HELP.htm";
constexpr int CoteIcone = 64;

QString Version() {
  return QStringLiteral("%1.%2.%3")
      .arg(OVELIN_VERSION_MAJEURE)
      .arg(OVELIN_VERSION_MINEURE)
      .arg(OVELIN_VERSION_REVISION);
}

}  // namespace

// In the order of the desktops that bring them.
QStringList GetKeyValue() {
  static const QList<QStringList> Programmes = {{"gnome-control-center", "info-overview"},
                                                {"kinfocenter"},
                                                {"cinnamon-settings", "info"},
                                                {"xfce4-about"},
                                                {"mate-about"},
                                                {"lxqt-about"},
                                                {"hardinfo2"},
                                                {"hardinfo"}};
  for (QStringList programme : Programmes) {
    const QString chemin = QStandardPaths::findExecutable(programme[0]);
    if (chemin.isEmpty()) continue;
    programme[0] = chemin;
    return programme;
  }
  return {};
}

F_About::F_About(QWidget* parent) : QDialog(parent) {
  Construit();
  PrepareFenetre(*this, Section);
}

void F_About::Construit() {
  setWindowTitle(QStringLiteral("À propos d'OVELIN"));
  QVBoxLayout* boite = ColonneFenetre(*this);
  auto* icone = Nomme(new QLabel(this), "Image1");
  icone->setPixmap(IconeProgramme("OVELIN-2").pixmap(CoteIcone, CoteIcone));
  auto* nom = Valeur("Lbl_Nom", "", this);
  nom->setText(QString::fromLatin1(NomProgramme));
  QFont grand = nom->font();
  grand.setBold(true);
  grand.setPointSizeF(grand.pointSizeF() * 1.8);
  nom->setFont(grand);
  auto* version = Valeur("Lbl_Version", "", this);
  version->setText(QString::fromLatin1(NomProgramme) + QLatin1Char(' ') + Version());
  auto* phrase = Phrase("Label1", "Du dessin aux mouvements d'une petite fraiseuse.", this);
  for (QLabel* ligne : {nom, version}) ligne->setMinimumHeight(ligne->sizeHint().height());
  phrase->setMinimumSize(260, 2 * phrase->fontMetrics().lineSpacing());
  auto* texte = new QVBoxLayout;
  for (QLabel* ligne : {nom, version, phrase}) texte->addWidget(ligne);
  auto* tete = new QHBoxLayout;
  tete->setSpacing(14);
  tete->addWidget(icone, 0, Qt::AlignTop);
  tete->addLayout(texte, 1);
  boite->addLayout(tete);
  boite->addSpacing(6);
  QPushButton* infos = Bouton("Btn_SysInfo", "Informations &système...",
                              "Ouvrir le programme du bureau qui décrit cet ordinateur", this);
  QPushButton* page = Bouton("Btn_Page", "&Page d'aide", "Ouvrir la page d'aide du site du projet", this);
  QPushButton* ok = Bouton("Btn_OK", "OK", "Fermer la fenêtre", this);
  ok->setDefault(true);
  for (QPushButton* autre : {infos, page}) autre->setAutoDefault(false);
  connect(infos, &QPushButton::clicked, this, &F_About::StartSysInfo);
  connect(page, &QPushButton::clicked, this, &F_About::OuvrePage);
  connect(ok, &QPushButton::clicked, this, &F_About::accept);
  boite->addStretch();
  boite->addLayout(RangeeBoutons({infos, page, ok}));
  OrdreTab({infos, page, ok});
  ok->setFocus();
}

void F_About::StartSysInfo() {
  QStringList programme = GetKeyValue();
  if (!programme.isEmpty()) {
    const QString chemin = programme.takeFirst();
    if (QProcess::startDetached(chemin, programme)) return;
  }
  Message(Textes::InfosSystemeAbsentes, Icone::Exclamation);
}

void F_About::OuvrePage() {
  const std::string adresse = AdresseSite(PageAide);
  if (adresse.empty()) {
    Message(Textes::PageSansAdresse, Icone::Information);
  } else if (Svc.OuvreParBureau(adresse) != IssueBureau::Ouvert) {
    MessageFichier(Textes::AideSansAssociation, "\n" + adresse, Icone::Exclamation, adresse);
  }
}

}  // namespace ovelin
