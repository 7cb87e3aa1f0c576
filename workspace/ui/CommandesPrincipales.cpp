#include "workspace/ui/CommandesPrincipales.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QToolButton>
#include <string_view>

#include "core/RunCourant.h"
#include "core/Services.h"
#include "core/ui/Fabrique.h"
#include "core/ui/ServicesQt.h"
#include "core/ui/Theme.h"
#include "workspace/Module_Cycle.h"

namespace ovelin {

namespace {

// What has a place of its own in the menus and on the tool bar.
constexpr std::string_view MenuRecents = "mnu_Fichier", CommandeApresRecents = "mnu_Quitter";
constexpr std::string_view Materiau = "CB_BD", PasDeZoom = "Combo_Zoom";
constexpr std::string_view Principale = "mnu_Fraisage";   // the one button that stands out
constexpr int LettresMateriau = 16, LettresSerrees = 12;  // that the list of materials shows at least

// The combo of the zoom: its arrows and the keys up and down step the scale, its items "+" and "-" too.
class ComboPas : public QComboBox {
 public:
  using QComboBox::QComboBox;
  std::function<void(int sens)> Pas;

 protected:
  void keyPressEvent(QKeyEvent* e) override {
    if (e->key() == Qt::Key_Up || e->key() == Qt::Key_Down) {
      if (Pas) Pas(e->key() == Qt::Key_Up ? 1 : -1);
      return;
    }
    QComboBox::keyPressEvent(e);
  }
  void wheelEvent(QWheelEvent* e) override {
    if (Pas && e->angleDelta().y() != 0) Pas(e->angleDelta().y() > 0 ? 1 : -1);
  }
};

// The picture of the button that stands out: drawn for its ground, the colour of a selection.
QIcon IconePrincipale(const std::string& nom) {
  const QIcon icone = IconeProgramme(QString::fromStdString(nom));
  QIcon sur;
  for (const int cote : {24, 48, 72}) {
    sur.addPixmap(icone.pixmap(QSize(cote, cote), 1.0, QIcon::Selected), QIcon::Normal);
    sur.addPixmap(icone.pixmap(QSize(cote, cote), 1.0, QIcon::Disabled), QIcon::Disabled);
  }
  return sur;
}

// A menu's text without its key and its dots.
QString TexteBouton(const QAction& commande) { return commande.text().remove('&').remove(QStringLiteral("...")); }

}  // namespace

CommandesPrincipales::CommandesPrincipales(QMenuBar* menus, QToolBar* barre, const Executions& executions,
                                           QObject* parent)
    : QObject(parent), executions_(executions), barre_(barre) {
  RemplitMenus(menus);
  RemplitBarre(barre);
  DessinOuvert(false);
  Active("mnu_Undo", false);
  Active("mnu_Redo", false);
  barre->installEventFilter(this);
}

QAction* CommandesPrincipales::Cree(const LigneCommande& ligne) {
  const auto execution = executions_.find(ligne.nom);
  if (execution == executions_.end()) return nullptr;
  auto* action = new QAction(IconeProgramme(QString::fromLatin1(ligne.nom)), QString::fromUtf8(ligne.texte), this);
  action->setObjectName(QString::fromLatin1(ligne.nom));
  action->setCheckable(ligne.bascule);
  if (*ligne.touches != '\0')
    action->setShortcuts(QKeySequence::listFromString(QString::fromLatin1(ligne.touches)));
  connect(action, &QAction::triggered, this, [this, action, &ligne, &commande = execution->second] {
    if (!ligne.course && OperationCarte) {
      if (ligne.bascule) action->toggle();  // the click has switched it already
      return Svc.Bip();
    }
    Execute(commande);
  });
  actions_[ligne.nom] = action;
  return action;
}

// A command can come another way than by mouse and keys, which are held back over a pass: it waits for its end.
void CommandesPrincipales::Execute(const std::function<void()>& commande) {
  if (!PasseEnCours()) return commande();
  Apres([moi = QPointer<CommandesPrincipales>(this), commande] {
    if (moi != nullptr) commande();
  });
}

void CommandesPrincipales::RemplitMenus(QMenuBar* menus) {
  for (const LigneMenu& ligne : TableMenus()) {
    auto* menu = new QMenu(QString::fromUtf8(ligne.texte), menus);
    menu->setObjectName(QString::fromLatin1(ligne.nom));
    int groupe = 0;
    for (const LigneCommande& c : TableCommandes()) {
      if (std::string_view(c.menu) != ligne.nom) continue;
      QAction* action = Cree(c);
      if (action == nullptr) continue;
      if (!menu->isEmpty() && c.groupe != groupe) menu->addSeparator();
      groupe = c.groupe;
      if (c.nom == CommandeApresRecents) {
        // Entry 0 of the recent files: a line that shows when there is one.
        separateurRecents_ = menu->addSeparator();
        separateurRecents_->setObjectName(QStringLiteral("mnu_MRU_0"));
        action->setMenuRole(QAction::QuitRole);
      }
      menu->addAction(action);
    }
    if (menu->isEmpty()) {
      delete menu;
      continue;
    }
    if (ligne.nom == MenuRecents) {
      menuFichier_ = menu;
      connect(menu, &QMenu::aboutToShow, this, &CommandesPrincipales::GriseRecents);
    }
    menus->addMenu(menu);
  }
}

void CommandesPrincipales::RemplitBarre(QToolBar* barre) {
  int groupe = 0;
  for (const LigneCommande* c : ParPlace(&LigneCommande::barre)) {
    const bool controle = c->nom == Materiau || c->nom == PasDeZoom;
    if (!controle && !actions_.contains(c->nom)) continue;
    if (groupe != 0 && groupe != c->barre / 10) barre->addSeparator();
    groupe = c->barre / 10;
    if (c->nom == Materiau) {
      AjouteMateriau();
    } else if (c->nom == PasDeZoom) {
      AjouteZoom();
    } else {
      AjouteBouton(c->nom);
    }
  }
}

void CommandesPrincipales::RemplitContexte(QMenu& menu) const {
  int groupe = 0;
  for (const LigneCommande* c : ParPlace(&LigneCommande::contexte)) {
    QAction* action = Action(c->nom);
    if (action == nullptr) continue;
    if (groupe != 0 && groupe != c->contexte / 10) menu.addSeparator();
    groupe = c->contexte / 10;
    menu.addAction(action);
  }
}

// A button is an action of its own that follows the menu's: its tool tip is translated by itself.
void CommandesPrincipales::AjouteBouton(const char* nom) {
  QAction* commande = actions_.at(nom);
  QAction* bouton = barre_->addAction(commande->icon(), TexteBouton(*commande));
  bouton->setObjectName(barre_->objectName() + "_" + QString::fromLatin1(nom));
  bouton->setCheckable(commande->isCheckable());
  connect(bouton, &QAction::triggered, commande, &QAction::trigger);
  const auto suit = [commande, bouton] {
    bouton->setEnabled(commande->isEnabled());
    bouton->setChecked(commande->isChecked());
    bouton->setIconText(TexteBouton(*commande));
  };
  connect(commande, &QAction::changed, bouton, suit);
  boutons_[nom] = bouton;
  auto* outil = qobject_cast<QToolButton*>(barre_->widgetForAction(bouton));
  outil->setObjectName(QString::fromLatin1(nom));
  if (nom == Principale) {
    outil->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    outil->setProperty("principal", true);
    bouton->setIcon(IconePrincipale(nom));
  }
}

void CommandesPrincipales::AjouteMateriau() {
  auto* cadre = new QWidget(barre_);
  auto* rangee = new QHBoxLayout(cadre);
  rangee->setContentsMargins(2, 0, 2, 0);
  lblBD_ = new QLabel(QStringLiteral("Matériau"), cadre);
  lblBD_->setObjectName(QStringLiteral("Lbl_BD"));
  cbBD_ = Liste(QStringLiteral("CB_BD"),
                QStringLiteral("Matériau : rayon, profondeurs, vitesses et encoches en une fois"), cadre);
  cbBD_->setMinimumContentsLength(LettresMateriau);
  cbBD_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  lblBD_->setBuddy(cbBD_);
  rangee->addWidget(lblBD_);
  rangee->addWidget(cbBD_);
  barre_->addWidget(cadre);
}

void CommandesPrincipales::AjouteZoom() {
  auto* combo = new ComboPas(barre_);
  combo->setObjectName(QStringLiteral("Combo_Zoom"));
  combo->setToolTip(QStringLiteral("Zoom par pas : flèches ou molette"));
  for (const char* texte : {"+", " ", "-"}) combo->addItem(QString::fromLatin1(texte));
  combo->setCurrentIndex(1);
  combo->Pas = [this](int sens) {
    if (Zoome && sens != 0) Zoome(sens > 0 ? PasZoom::Plus : PasZoom::Moins);
  };
  connect(combo, &QComboBox::activated, this, [this](int) {
    const std::string choix = comboZoom_->currentText().toStdString();
    comboZoom_->setCurrentIndex(1);
    if (ChoixZoom) ChoixZoom(choix);
  });
  comboZoom_ = combo;
  barre_->addWidget(combo);
}

QAction* CommandesPrincipales::Action(const char* nom) const {
  const auto trouvee = actions_.find(nom);
  return trouvee == actions_.end() ? nullptr : trouvee->second;
}

void CommandesPrincipales::Active(const char* nom, bool active) {
  eteintes_[nom] = !active;
  for (const LigneCommande& c : TableCommandes()) {
    if (std::string_view(c.nom) == nom) Applique(c);
  }
}

void CommandesPrincipales::Applique(const LigneCommande& ligne) {
  QAction* action = Action(ligne.nom);
  if (action != nullptr) action->setEnabled(!eteintes_[ligne.nom] && (!enRun_ || ligne.course));
}

void CommandesPrincipales::EnRun(bool enRun) {
  enRun_ = enRun;
  for (const LigneCommande& c : TableCommandes()) Applique(c);
  if (cbBD_ != nullptr) cbBD_->setEnabled(!enRun);
}

void CommandesPrincipales::Coche(const char* nom, bool coche) {
  if (QAction* action = Action(nom)) action->setChecked(coche);
}

void CommandesPrincipales::DessinOuvert(bool ouvert) {
  for (const LigneCommande& c : TableCommandes()) {
    if (c.dessin) Active(c.nom, ouvert);
  }
  if (comboZoom_ != nullptr) comboZoom_->setEnabled(ouvert);
  MontreUndo(ouvert);
}

void CommandesPrincipales::MontreUndo(bool visible) {
  const auto bouton = boutons_.find("mnu_Undo");
  if (bouton == boutons_.end() || bouton->second->isVisible() == visible) return;
  bouton->second->setVisible(visible);
  AjusteBarre();
}

void CommandesPrincipales::SerreBarre(Serre serre) {
  lblBD_->setVisible(serre == Serre::Large);
  cbBD_->setMinimumContentsLength(serre == Serre::Large ? LettresMateriau : LettresSerrees);
  QWidget* cadre = lblBD_->parentWidget();
  cadre->layout()->activate();
  cadre->updateGeometry();
  const auto principal = boutons_.find(std::string(Principale));
  if (principal == boutons_.end()) return;
  qobject_cast<QToolButton*>(barre_->widgetForAction(principal->second))
      ->setToolButtonStyle(serre == Serre::Icones ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextBesideIcon);
}

void CommandesPrincipales::AjusteBarre() {
  if (ajuste_) return;
  ajuste_ = true;
  for (const Serre serre : {Serre::Large, Serre::SansMateriau, Serre::Icones}) {
    SerreBarre(serre);
    if (barre_->sizeHint().width() <= barre_->width()) break;
  }
  ajuste_ = false;
}

bool CommandesPrincipales::eventFilter(QObject* objet, QEvent* e) {
  if (objet == barre_ && e->type() == QEvent::Resize) AjusteBarre();
  return QObject::eventFilter(objet, e);
}

void CommandesPrincipales::RemplitRecents(const std::vector<std::string>& textes) {
  if (menuFichier_ == nullptr || separateurRecents_ == nullptr) return;
  // Later: the one that was chosen is still at work when the list changes.
  for (QAction* entree : recents_) {
    menuFichier_->removeAction(entree);
    entree->setParent(nullptr);
    entree->deleteLater();
  }
  recents_.clear();
  for (std::size_t i = 1; i <= textes.size(); ++i) {
    auto* entree = new QAction((i < 10 ? QStringLiteral("&") : QString()) +
                                   QString::fromStdString(textes[i - 1]).replace('&', QStringLiteral("&&")),
                               this);
    entree->setObjectName(QStringLiteral("mnu_MRU_%1").arg(i));
    connect(entree, &QAction::triggered, this, [this, i] {
      if (OperationCarte) return Svc.Bip();
      Execute([this, i] {
        if (Recent) Recent(i);
      });
    });
    menuFichier_->insertAction(separateurRecents_, entree);
    recents_.push_back(entree);
  }
  separateurRecents_->setVisible(!textes.empty());
}

void CommandesPrincipales::GriseRecents() {
  for (std::size_t i = 0; i < recents_.size(); ++i) {
    recents_[i]->setEnabled(!enRun_ && (!RecentPresent || RecentPresent(i + 1)));
  }
}

void CommandesPrincipales::DessineBoutonPrincipal() {
  const auto bouton = boutons_.find(std::string(Principale));
  if (bouton != boutons_.end()) bouton->second->setIcon(IconePrincipale(bouton->first));
}

}  // namespace ovelin
