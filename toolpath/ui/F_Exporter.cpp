#include "toolpath/ui/F_Exporter.h"

#include <QCloseEvent>
#include <QProgressBar>
#include <QRadioButton>
#include <QTimer>

#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "core/ui/Fabrique.h"
#include "core/ui/Fenetres.h"
#include "core/ui/ServicesQt.h"
#include "toolpath/Module_Export.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_Exporter";
constexpr int Periode = 50;    // ms between two steps of the bar
constexpr int Etendue = 1000;  // of the bar
constexpr int Pas = 25;

struct Format {
  const char* nom;
  const char* motif;
  CleTexte filtre;
};
// In the order of Option1.
const std::array<Format, 2> Formats{{{"dxf", "*.dxf", Textes::FormatDxf}, {"dat", "*.dat", Textes::FormatDat}}};

QGroupBox* Choix(const char* nom, const char* titre, std::array<QRadioButton*, 2> options) {
  QGroupBox* cadre = Groupe(nom, titre);
  auto* colonne = new QVBoxLayout(cadre);
  colonne->setContentsMargins(8, 6, 8, 8);
  for (QRadioButton* option : options) colonne->addWidget(option);
  options[0]->setChecked(true);
  return cadre;
}

}  // namespace

F_Exporter::F_Exporter(QWidget* parent) : QDialog(parent) {
  Construit();
  PrepareFenetre(*this, Section);
  Btn_Gener_Fichier_->setFocus();
}

void F_Exporter::Construit() {
  setWindowTitle(QStringLiteral("Exporter"));
  QVBoxLayout* boite = ColonneFenetre(*this);
  Option1_ = {Nomme(new QRadioButton(QStringLiteral("D&XF (Fichier d'échange AutoCad)")), "Option1_0",
                    "Des polylignes, une par séquence, que les logiciels de dessin lisent"),
              Nomme(new QRadioButton(QStringLiteral("DA&T (fichier de coordonnées)")), "Option1_1",
                    "X et Y de chaque point ; un fichier par trajet")};
  Option2_ = {Nomme(new QRadioButton(QStringLiteral("&Origine")), "Option2_0", "Les points du dessin"),
              Nomme(new QRadioButton(QStringLiteral("T&rajet de l'outil")), "Option2_1",
                    "Les points du trajet de l'outil, décalage compris")};
  boite->addWidget(Choix("Frame_Format", "Format", Option1_));
  boite->addWidget(Choix("Frame_Decal", "Tracé", Option2_));

  ProgressBar_Avancement_ = Nomme(new QProgressBar, "ProgressBar_Avancement", "Avancement de l'écriture");
  ProgressBar_Avancement_->setRange(0, Etendue);
  ProgressBar_Avancement_->setTextVisible(false);
  Frame_Avancement_ = Groupe("Frame_Avancement", "Sauvegarde");
  auto* colonne = new QVBoxLayout(Frame_Avancement_);
  colonne->setContentsMargins(8, 6, 8, 8);
  colonne->addWidget(ProgressBar_Avancement_);
  boite->addWidget(Frame_Avancement_);
  boite->addStretch();
  // The library tells no progress of its own: a bar that moves says that it is at work.
  Timer_Avancement_ = new QTimer(this);
  Timer_Avancement_->setObjectName(QStringLiteral("Timer_Avancement"));
  Timer_Avancement_->setInterval(Periode);
  connect(Timer_Avancement_, &QTimer::timeout, this,
          [this] { ProgressBar_Avancement_->setValue((ProgressBar_Avancement_->value() + Pas) % Etendue); });

  Btn_Gener_Fichier_ =
      Bouton("Btn_Gener_Fichier", "&Générer le fichier", "Choisir le nom du fichier et l'écrire", this);
  Btn_Gener_Fichier_->setDefault(true);
  Btn_Fermer_ = Bouton("Btn_Fermer", "Fermer", "Fermer sans rien écrire", this);
  Btn_Fermer_->setAutoDefault(false);
  connect(Btn_Gener_Fichier_, &QPushButton::clicked, this, &F_Exporter::Btn_Gener_Fichier_Click);
  connect(Btn_Fermer_, &QPushButton::clicked, this, &F_Exporter::reject);
  boite->addLayout(RangeeBoutons({Btn_Gener_Fichier_, Btn_Fermer_}));
  OrdreTab({Option1_[0], Option1_[1], Option2_[0], Option2_[1], Btn_Gener_Fichier_, Btn_Fermer_});
}

void F_Exporter::Btn_Gener_Fichier_Click() {
  const Format& format = Formats[Option1_[1]->isChecked() ? 1 : 0];
  DialogueFichier demande;
  demande.enregistrer = true;
  demande.cle = "Btn_Gener_Fichier";
  demande.titre = windowTitle().toStdString();
  demande.filtre = Traduire(format.filtre);
  demande.motif = format.motif;
  demande.propose = NomSansExtension(NomDe(FichierCourant)) + "." + format.nom;
  const std::string chemin = Svc.ChoisitFichier(demande);
  if (chemin.empty()) return;
  Timer_Avancement_->start();
  for (QPushButton* bouton : {Btn_Gener_Fichier_, Btn_Fermer_}) bouton->setEnabled(false);
  const bool ecrit = Exporte(chemin, Option2_[1]->isChecked() ? 1 : 0);
  Timer_Avancement_->stop();
  ProgressBar_Avancement_->setValue(0);
  for (QPushButton* bouton : {Btn_Gener_Fichier_, Btn_Fermer_}) bouton->setEnabled(true);
  if (ecrit) accept();
}

void F_Exporter::closeEvent(QCloseEvent* e) {
  if (!RemetFermeture(*this, *e)) QDialog::closeEvent(e);
}

}  // namespace ovelin
