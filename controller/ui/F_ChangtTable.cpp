#include "controller/ui/F_ChangtTable.h"

#include <string>

#include "core/ui/Fenetres.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_ChangtTable";
constexpr int LargeurBouton = 220;  // logical pixels: eight wide characters and more

// A name of the user's as the text of a button, where one & would be the mark of a key.
QString Legende(const std::string& nom) {
  return QString::fromStdString(nom).trimmed().replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace

F_ChangtTable::F_ChangtTable(QWidget* parent) : QDialog(parent) {
  Construit();
  PrepareFenetre(*this, Section);
}

// Enter closes: a table of the board goes by a press that means it.
void F_ChangtTable::Construit() {
  setWindowTitle(QStringLiteral("Mise à jour des tables ZENIK"));
  QVBoxLayout* boite = ColonneFenetre(*this);
  boite->addWidget(Phrase("Label1", "Cliquer sur la table que vous voulez remplacer dans l'interface", this));
  QGridLayout* grille = GrilleFenetre();
  for (std::uint8_t n = 0; n < TablesOffertes; ++n) {
    const QString numero = QString::number(n);
    QPushButton* bouton =
        Bouton("CB_Table_" + numero, "", "Écrire la table du programme à la place de celle-ci", this);
    bouton->setProperty("valeur", true);
    bouton->setAutoDefault(false);
    connect(bouton, &QPushButton::clicked, this, [this, n] { CB_Table_Click(n); });
    grille->addWidget(Etiquette("Lbl_Table_" + numero, "Table &" + numero + " :", bouton), n, 0);
    grille->addWidget(bouton, n, 1);
    CB_Table_[n] = bouton;
  }
  grille->setColumnStretch(1, 1);
  grille->setColumnMinimumWidth(1, LargeurBouton);
  boite->addLayout(grille);
  boite->addStretch();
  Btn_Fermer_ = Bouton("Btn_Fermer", "Fermer", "Fermer la fenêtre", this);
  Btn_Fermer_->setDefault(true);
  Btn_Fermer_->setFocus();
  connect(Btn_Fermer_, &QPushButton::clicked, this, &F_ChangtTable::reject);
  boite->addLayout(RangeeBoutons({Btn_Fermer_}));
  OrdreTab({CB_Table_[0], CB_Table_[1], CB_Table_[2], Btn_Fermer_});
}

void F_ChangtTable::Form_Load() {
  const auto legendes = LegendesTables();
  for (std::size_t n = 0; n < CB_Table_.size(); ++n) CB_Table_[n]->setText(Legende(legendes[n]));
}

void F_ChangtTable::CB_Table_Click(std::uint8_t table) {
  CB_Table_[table]->setText(Legende(RemplaceTable(table)));
  remplacee_ = table;
}

void F_ChangtTable::reject() { done(remplacee_ ? QDialog::Accepted : QDialog::Rejected); }

}  // namespace ovelin
