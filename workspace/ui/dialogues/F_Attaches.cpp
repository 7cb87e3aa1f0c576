#include "workspace/ui/dialogues/F_Attaches.h"

#include <QRadioButton>

#include "core/Nombres.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/ui/Fabrique.h"
#include "core/ui/Fenetres.h"
#include "core/ui/TraduitFenetre.h"
#include "toolpath/Attaches.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_Attaches";
constexpr std::size_t ParNombre = 0, ParPas = 1;  // of Option_Voeu
constexpr double NombreMax = 1000;

}  // namespace

F_Attaches::F_Attaches(QWidget* parent) : QDialog(parent) {
  Construit();
  PrepareFenetre(*this, Section);
  Option_Voeu_[ParNombre]->setChecked(true);
  champs_[ParNombre]->Montre("4");
  champs_[ParPas]->Montre("80");
  champs_[ParNombre]->setFocus();
  champs_[ParNombre]->selectAll();
}

void F_Attaches::Construit() {
  setWindowTitle(QStringLiteral("Points d'attache automatiques"));
  QVBoxLayout* boite = ColonneFenetre(*this);
  QLabel* aide = Phrase("Label1", "Sur les séquences sélectionnées, loin des coins et des départs.", this);
  aide->setMinimumSize(300, 2 * aide->fontMetrics().lineSpacing());
  boite->addWidget(aide);
  Option_Voeu_[ParNombre] = Nomme(new QRadioButton(QStringLiteral("&Nombre par séquence"), this), "Option_Voeu_0",
                                  "Autant sur chaque séquence");
  Option_Voeu_[ParPas] = Nomme(new QRadioButton(QStringLiteral("Un &tous les"), this), "Option_Voeu_1",
                               "D'autant plus que la séquence est longue");
  champs_[ParNombre] = Champ("TB_Nombre", "", "Points d'attache sur chaque séquence", this);
  champs_[ParPas] = Champ("TB_Pas", "mm", "Distance d'un point d'attache au suivant, le long de la séquence", this);
  champs_[ParNombre]->setAccessibleName(QString::fromUtf8("Nombre par séquence"));
  champs_[ParPas]->setAccessibleName(QStringLiteral("Distance"));
  QGridLayout* grille = GrilleFenetre();
  for (std::size_t i = 0; i < 2; ++i) {
    grille->addWidget(Option_Voeu_[i], static_cast<int>(i), 0);
    grille->addWidget(champs_[i], static_cast<int>(i), 1);
    connect(champs_[i], &QLineEdit::textEdited, this, [this, i] { Option_Voeu_[i]->setChecked(true); });
  }
  boite->addLayout(grille);
  boite->addStretch();
  const BoutonsDialogue boutons = PoseBoutons(*this, "Placer les points d'attache", "Fermer sans rien changer");
  boite->addLayout(boutons.rangee);
  connect(boutons.ok, &QPushButton::clicked, this, &F_Attaches::Btn_OK_Click);
  OrdreTab({Option_Voeu_[ParNombre], champs_[ParNombre], Option_Voeu_[ParPas], champs_[ParPas], boutons.ok,
            boutons.annuler});
}

void F_Attaches::Btn_OK_Click() {
  const bool parPas = Option_Voeu_[ParPas]->isChecked();
  ChampNombre& champ = *champs_[parPas ? ParPas : ParNombre];
  const auto v = NombreDuTexte(champ.Texte());
  if (!v || !(*v >= (parPas ? 0.1 : 1.0)) || *v > (parPas ? 1e6 : NombreMax)) {
    champ.Refuse(TexteQt(Textes::AttachesNombre));
    return champ.setFocus();
  }
  VoeuAttaches voeu;
  if (parPas) {
    voeu.pas = *v;
  } else {
    voeu.nombre = static_cast<int>(*v);
  }
  const std::int32_t posees = PoseAttaches(voeu);
  if (posees < 0) return;
  if (posees == 0) {
    Message(Textes::AttachesSansPlace, Icone::Information);
    return;
  }
  accept();
}

}  // namespace ovelin
