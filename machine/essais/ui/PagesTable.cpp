#include "machine/essais/ui/PagesTable.h"

#include <QRadioButton>
#include <QSlider>
#include <array>
#include <functional>

#include "core/Nombres.h"
#include "core/ui/Equivalent.h"
#include "core/ui/Fabrique.h"
#include "machine/Module_Table.h"
#include "machine/essais/ui/ControlesTable.h"
#include "machine/essais/ui/ImageMachine.h"
#include "machine/essais/ui/ImagePente.h"

namespace ovelin {

namespace {

using C = ChampsMachine;
constexpr std::array<const char*, 3> Axes{"X", "Y", "Z"};
constexpr int DivisionMax = 7;  // of a step, as a power of two
constexpr int CadenceMax = 10;  // of 10 kHz
constexpr int PenteMax = 9;

QString Francais(const char* texte) { return QString::fromUtf8(texte); }

// The explanation of a control with the name of its axis.
QString Bulle(const char* texte, std::size_t axe) {
  return Francais(texte).replace(QStringLiteral("{A}"), QLatin1String(Axes[axe]));
}

void TetesAxes(QGridLayout& grille, const QString& nom) {
  for (int axe = 0; axe < 3; ++axe) {
    QLabel* tete = EnTete(nom + QString::number(axe), QString::fromLatin1(Axes[static_cast<std::size_t>(axe)]));
    tete->setProperty("valeur", true);
    grille.addWidget(tete, 0, axe + 1);
    grille.setColumnStretch(axe + 1, 1);
  }
}

// A row of a grid: its label, and the control that `fait` makes for each axis.
using FaitControle = std::function<QWidget*(std::size_t axe)>;
void Rangee(QGridLayout& grille, int rangee, const char* nom, const char* texte, const FaitControle& fait,
            Qt::Alignment place = {}) {
  QLabel* etiquette = Etiquette(QString::fromLatin1(nom), Francais(texte));
  grille.addWidget(etiquette, rangee, 0);
  for (int axe = 0; axe < 3; ++axe) {
    grille.addWidget(fait(static_cast<std::size_t>(axe)), rangee, axe + 1, place);
  }
}

FaitControle Champs(ControlesTable& controles, const std::array<ChampMachine, 3>& champs, const char* unite,
                    const char* bulle) {
  return [&controles, champs, unite, bulle](std::size_t axe) -> QWidget* {
    return controles.Champ(champs[axe], Francais(unite), Bulle(bulle, axe));
  };
}

// A group with a grid of its own, below the others of the page.
QGridLayout* GroupeDe(QVBoxLayout& page, const char* nom, const char* titre) {
  QGroupBox* groupe = Groupe(QString::fromLatin1(nom), Francais(titre));
  page.addWidget(groupe);
  return GrilleGroupe(*groupe);
}

void UnChamp(QGridLayout& grille, int rangee, const char* nom, const QString& texte, QWidget* champ) {
  grille.addWidget(Etiquette(QString::fromLatin1(nom), texte, champ), rangee, 0);
  grille.addWidget(champ, rangee, 1);
}

QStringList Divisions() {
  QStringList elements{QStringLiteral("1")};
  for (int n = 1; n <= DivisionMax; ++n) elements += QStringLiteral("1/%1").arg(1 << n);
  return elements;
}

QStringList Cadences() {
  QStringList elements;
  for (int n = 1; n <= CadenceMax; ++n) elements += QStringLiteral("%1 kHz").arg(10 * n);
  return elements;
}

// The field beside the slider shows its value, and moves it where it holds one.
void Accouple(QSlider& curseur, ChampNombre& pente, QLabel& temps, ImagePente& image) {
  const auto montre = [&pente, &temps, &image](int valeur) {
    if (NombreDuTexte(pente.Texte()) != valeur) pente.Montre(std::to_string(valeur));
    temps.setText(QString::fromStdString(TextePente(valeur)));
    image.DessinePente(valeur);
  };
  QObject::connect(&curseur, &QSlider::valueChanged, &pente, montre);
  QObject::connect(&pente, &ChampNombre::textChanged, &curseur,
                   [&curseur, &pente] { curseur.setValue(CurseurPente(pente.Texte(), curseur.value())); });
  QObject::connect(&pente, &ChampNombre::Quitte, &curseur, [&curseur, montre](bool) { montre(curseur.value()); });
  montre(curseur.value());
}

}  // namespace

QWidget* PageMecanique(ControlesTable& controles) {
  auto* page = Nomme(new QWidget, "Page_Mecanique");
  QVBoxLayout* colonne = ColonnePage(*page);
  QGridLayout* transmission = GroupeDe(*colonne, "Frame_Transmission", "Rapport de transmission");
  TetesAxes(*transmission, "Tete_Transmission_");
  Rangee(*transmission, 1, "Lbl_Transmission", "Déplacement (mm/tour) :",
         Champs(controles, {C::TransmissionX, C::TransmissionY, C::TransmissionZ}, "",
                "Déplacement en mm pour un tour de moteur, axe {A}"));

  QGridLayout* moteurs = GroupeDe(*colonne, "Frame_Moteurs", "Moteurs");
  TetesAxes(*moteurs, "Tete_Moteurs_");
  Rangee(*moteurs, 1, "Lbl_Pas", "Pas par tour :",
         Champs(controles, {C::PasParTourX, C::PasParTourY, C::PasParTourZ}, "",
                "Pas entiers du moteur pour un tour, axe {A} ; les degrés par pas suivent"));
  Rangee(*moteurs, 2, "Lbl_Degres", "ou degrés par pas :",
         Champs(controles, {C::DegresParPasX, C::DegresParPasY, C::DegresParPasZ}, "°",
                "Degrés par pas entier, axe {A} ; les pas par tour suivent"));
  Rangee(*moteurs, 3, "Lbl_Division", "Division du pas :", [&controles](std::size_t axe) -> QWidget* {
    static constexpr std::array<ChampMachine, 3> champs{C::DivisionX, C::DivisionY, C::DivisionZ};
    return controles.Liste(champs[axe], Divisions(),
                           Bulle("Part de pas que fait l'interface à chaque impulsion, axe {A}", axe));
  });
  Rangee(
      *moteurs, 4, "Lbl_Inversion", "Inversion sens :",
      [&controles](std::size_t axe) -> QWidget* {
        static constexpr std::array<ChampMachine, 3> champs{C::InverseSensX, C::InverseSensY, C::InverseSensZ};
        return controles.Coche(champs[axe], {},
                               Bulle("Gardé dans la table et lu par d'autres programmes ; pour inverser l'axe {A}, "
                                     "inversez le signal de sa sortie Dir",
                                     axe));
      },
      Qt::AlignHCenter);

  QGridLayout* perdus = GroupeDe(*colonne, "Frame_PasPerdus", "Pas perdus à l'inversion de sens");
  TetesAxes(*perdus, "Tete_PasPerdus_");
  Rangee(*perdus, 1, "Lbl_PasPerdus", "Pas à rattraper :",
         Champs(controles, {C::PasPerdusX, C::PasPerdusY, C::PasPerdusZ}, "",
                "Pas perdus quand l'axe {A} change de sens"));
  colonne->addStretch();
  return page;
}

QWidget* PageVitesses(ControlesTable& controles) {
  auto* page = Nomme(new QWidget, "Page_Vitesses");
  QVBoxLayout* colonne = ColonnePage(*page);
  QGridLayout* vitesses = GroupeDe(*colonne, "Frame_Vitesses", "Vitesses");
  vitesses->addWidget(EnTete("Tete_SansRampe", Francais("sans accélération")), 0, 1);
  vitesses->addWidget(EnTete("Tete_AvecRampe", Francais("avec accélération")), 0, 2);
  static constexpr std::array<ChampMachine, 3> sansRampe{C::VitesseSansRampeX, C::VitesseSansRampeY,
                                                         C::VitesseSansRampeZ};
  static constexpr std::array<ChampMachine, 3> avecRampe{C::VitesseMaxX, C::VitesseMaxY, C::VitesseMaxZ};
  for (int rang = 0; rang < 3; ++rang) {
    const auto axe = static_cast<std::size_t>(rang);
    ChampNombre* sans = controles.Champ(
        sansRampe[axe], "mm/s", Bulle("La plus haute vitesse à laquelle l'axe {A} part sans perdre de pas", axe));
    vitesses->addWidget(
        Etiquette(QStringLiteral("Lbl_Vitesse_%1").arg(rang), Bulle("Vitesse maxi en {A} :", axe), sans), rang + 1,
        0);
    ChampNombre* avec = controles.Champ(avecRampe[axe], "mm/s",
                                        Bulle("La plus haute vitesse de l'axe {A}, atteinte par la rampe", axe));
    vitesses->addWidget(AvecEquivalent(sans, SorteEquivalent::ParMinute), rang + 1, 1);
    vitesses->addWidget(AvecEquivalent(avec, SorteEquivalent::ParMinute), rang + 1, 2);
  }
  vitesses->setColumnStretch(1, 1);
  vitesses->setColumnStretch(2, 1);

  QGridLayout* accel = GroupeDe(*colonne, "Frame_Accel", "Accélération");
  QSlider* curseur = controles.Curseur(C::PenteAccel, 1, PenteMax,
                                       Francais("Pente de la rampe : 1 la plus raide, 9 la plus douce"));
  ChampNombre* pente = Champ("TB_Pente", "", Francais("Pente de la rampe, de 1 à 9"));
  pente->EntierSeul();
  auto* image = new ImagePente("PB_Accel", Francais("La rampe : la vitesse monte avec le temps"));
  QLabel* temps = Valeur("Label_Accel");
  accel->addWidget(Etiquette("Lbl_Pente", Francais("Pente :"), curseur), 0, 0);
  accel->addWidget(curseur, 0, 1);
  accel->addWidget(pente, 0, 2);
  accel->addWidget(temps, 1, 0, 1, 3);
  accel->addWidget(image, 2, 0, 1, 3);
  QComboBox* cadence =
      controles.Liste(C::FrequenceMax, Cadences(), Francais("Cadence de la carte à pleine vitesse"));
  accel->addWidget(Etiquette("Lbl_Frequence", Francais("Fréquence max :"), cadence), 3, 0);
  accel->addWidget(cadence, 3, 1, 1, 2, Qt::AlignLeft);
  accel->setColumnStretch(1, 1);
  accel->setRowStretch(2, 1);
  Accouple(*curseur, *pente, *temps, *image);
  return page;
}

QWidget* PageCourses(ControlesTable& controles) {
  auto* page = Nomme(new QWidget, "Page_Courses");
  QVBoxLayout* colonne = ColonnePage(*page);
  QGridLayout* courses = GroupeDe(*colonne, "Frame_Courses", "Courses maxi");
  static constexpr std::array<ChampMachine, 3> champs{C::CourseX, C::CourseY, C::CourseZFenetre};
  for (int rang = 0; rang < 3; ++rang) {
    const auto axe = static_cast<std::size_t>(rang);
    ChampNombre* course = controles.Champ(champs[axe], "mm", Bulle("Course de l'axe {A}", axe));
    UnChamp(*courses, rang, QStringLiteral("Lbl_Course_%1").arg(rang).toLatin1().constData(),
            Bulle("Course en {A} :", axe), course);
  }
  courses->addWidget(
      controles.Coche(C::FinsDeCourse, Francais("Fins de courses"), Francais("La machine a des fins de courses")),
      3, 0, 1, 2);
  courses->setColumnStretch(1, 1);

  QGridLayout* zero = GroupeDe(*colonne, "Frame_Zero", "Z zéro machine");
  zero->addWidget(
      controles.Option(C::ZeroEnHaut, Francais("En haut"), Francais("Le zéro de Z est en haut de la course")), 0,
      0);
  zero->addWidget(
      controles.Option(C::ZeroSurTable, Francais("Sur la table"), Francais("Le zéro de Z est sur la table")), 0, 1);
  zero->setColumnStretch(1, 1);

  QGridLayout* orientation = GroupeDe(*colonne, "Frame_Orientation", "Orientation");
  QCheckBox* inverse = controles.Coche(C::Orientation, Francais("Machine vue de l'autre côté"),
                                       Francais("Vous êtes derrière la machine : X et Y se lisent à l'envers"));
  auto* devant = new ImageMachine("Img_Machine", Francais("Les axes de la machine, vue de devant"), false);
  auto* derriere =
      new ImageMachine("Img_MachineInv", Francais("Les axes de la machine, vue de l'autre côté"), true);
  orientation->addWidget(inverse, 0, 0);
  orientation->addWidget(devant, 1, 0);
  orientation->addWidget(derriere, 1, 0);
  orientation->setRowStretch(1, 1);
  const auto montre = [devant, derriere](bool coche) {
    devant->setVisible(!coche);
    derriere->setVisible(coche);
  };
  QObject::connect(inverse, &QCheckBox::toggled, devant, montre);
  montre(false);
  return page;
}

QWidget* PageCarte(ControlesTable& controles) {
  auto* page = Nomme(new QWidget, "Page_Carte");
  QVBoxLayout* colonne = ColonnePage(*page);
  QGridLayout* moteurs = GroupeDe(*colonne, "Frame_GestionMoteurs", "Gestion Moteurs");
  moteurs->addWidget(controles.Coche(C::GestionMoteurs, Francais("Couper les moteurs au repos"),
                                     Francais("La carte coupe les moteurs quand rien ne bouge")),
                     0, 0, 1, 2);
  UnChamp(*moteurs, 1, "Lbl_TimeOut", "TimeOut :",
          controles.Champ(C::TimeOutMoteur, "s", Francais("Secondes après lesquelles la carte coupe les moteurs")));
  UnChamp(*moteurs, 2, "Lbl_VitMax", "Vit. max % :",
          controles.Champ(C::VitesseMaxPC, "%", Francais("Vitesse maximum, en pour cent, 100 au plus")));
  UnChamp(*moteurs, 3, "Lbl_VitAuto", "Vit. mode auto :",
          controles.Champ(C::VitesseModeAuto, "", Francais("Vitesse du mode automatique de la carte")));
  moteurs->setColumnStretch(1, 1);

  QGridLayout* options = GroupeDe(*colonne, "Frame_Options", "Options");
  options->addWidget(controles.Coche(C::BrocheAuto, Francais("Le fraisage commande la broche"),
                                     Francais("La broche démarre et s'arrête avec le fraisage")),
                     0, 0, 1, 2);
  options->addWidget(
      controles.Coche(C::ClavierZENIK, Francais("Clavier ZENIK"), Francais("Le clavier de la carte est utilisé")),
      1, 0, 1, 2);
  UnChamp(
      *options, 2, "Lbl_VitesseBroche", Francais("Vitesse de broche (tr/min) :"),
      controles.Champ(C::VitesseBroche, "",
                      Francais("Vitesse de pointe de la broche en tours par minute, à laquelle se mesure le mot "
                               "S ; 0 : inconnue")));
  options->setColumnStretch(1, 1);

  QGridLayout* reserve = GroupeDe(*colonne, "Frame_Reserve", "Valeurs gardées pour d'autres programmes");
  static constexpr std::array<ChampMachine, 8> gardes{C::Reserve22, C::Reserve23, C::Reserve24, C::Reserve25,
                                                      C::Reserve26, C::Reserve27, C::Reserve28, C::Reserve29};
  constexpr int ParRangee = 4;
  for (int i = 0; i < 8; ++i) {
    const ChampMachine& champ = gardes[static_cast<std::size_t>(i)];
    ChampNombre* valeur = controles.Champ(
        champ, "", Francais("Valeur n° %1 de la table, que ce programme n'utilise pas").arg(champ.index));
    QLabel* numero =
        Etiquette(QStringLiteral("Lbl_Reserve_%1").arg(champ.index), QString::number(champ.index), valeur);
    numero->setProperty("valeur", true);
    reserve->addWidget(numero, i / ParRangee, i % ParRangee * 2);
    reserve->addWidget(valeur, i / ParRangee, i % ParRangee * 2 + 1);
  }
  colonne->addStretch();
  return page;
}

}  // namespace ovelin
