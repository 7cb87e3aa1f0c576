#include "tests/ui/principale/FenetrePrincipale.h"

#include <QClipboard>
#include <filesystem>

#include "app/ovelin/Composition.h"
#include "core/Document.h"
#include "core/ReglagesCourants.h"
#include "core/ui/ServicesQt.h"
#include "machine/Module_Table.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Module_Vue.h"

namespace essai {

using namespace ovelin;

void Principale::SetUp() {
  QApplication::clipboard()->clear();  // of the test before
  ovelin::InstalleTable(TableFenetres());
  ovelin::OuvreFenetre = [this](const std::string& nom, QWidget*) {
    if (nom == "F_PilMan" && !manuelle_) return IssueFenetre::Ouverte;
    ouvertes_.push_back(nom);
    const auto reponse = reponses_.find(nom);
    const bool acceptee = reponse != reponses_.end() && reponse->second();
    return acceptee ? IssueFenetre::Acceptee : IssueFenetre::Annulee;
  };
  // The fallback texts are checked elsewhere; here the window speaks French as the files do.
  Regl.Langue = "fr";
  ChargeGlobalesTable();
}

void Principale::TearDown() {
  fenetre_.reset();
  ovelin::OuvreFenetre = nullptr;
  ovelin::FenetreExiste = nullptr;
}

F_Representation& Principale::Charge(const std::string& ligneCommande) {
  fenetre_ = std::make_unique<F_Representation>();
  fenetre_->DossierDocuments.clear();
  fenetre_->resize(1280, 800);
  fenetre_->Form_Load(ligneCommande);
  C<QTimer>("Timer_Cadre")->stop();  // a test has its own time
  fenetre_->resize(1280, 800);
  QApplication::setActiveWindow(fenetre_.get());
  Evenements();
  C<ImagePB1>("PB1")->MetEnPage();
  Evenements();
  return *fenetre_;
}

std::string Principale::Exemple(const std::string& nom) {
  const std::string cible = Dossier() + "/" + nom;
  std::filesystem::copy_file(DossierExemples() + "/" + nom, cible,
                             std::filesystem::copy_options::overwrite_existing);
  std::filesystem::permissions(cible, std::filesystem::perms::owner_write, std::filesystem::perm_options::add);
  return cible;
}

QAction* Principale::Menu(const char* nom) const { return Controle<QAction>(*fenetre_, nom); }

QAction* Principale::Bouton(const char* nom) const {
  return Controle<QAction>(*fenetre_, (std::string("TB1_") + nom).c_str());
}

void Principale::Commande(const char* nom) {
  Menu(nom)->trigger();
  Evenements();
}

QPoint Principale::PlaceDessin(float x, float y) {
  auto* image = C<ImagePB1>("PB1");
  const PointTrace p = VersEcran(Vue, image->Taille().hauteur, {x, y, CodePD, {}});
  return {static_cast<int>(std::lround(p.X / TwipsParPixel)), static_cast<int>(std::lround(p.Y / TwipsParPixel))};
}

void Principale::CliqueDessin(float x, float y, Qt::KeyboardModifiers touches, Qt::MouseButton bouton) {
  QTest::mouseClick(C<ImagePB1>("PB1"), bouton, touches, PlaceDessin(x, y));
  Evenements();
}

std::vector<std::string> Principale::Selectionnes() {
  std::vector<std::string> codes;
  for (const Code2 code : CodesSelectionnes()) codes.push_back(code.Texte());
  return codes;
}

void Principale::CliqueLigne(const char* arbre, int groupe, int point, Qt::MouseButton bouton) {
  auto* vue = C<QTreeView>(arbre);
  QModelIndex ligne = vue->model()->index(groupe, 0, vue->model()->index(0, 0));
  if (point >= 0) {
    vue->expand(ligne);
    ligne = vue->model()->index(point, 0, ligne);
  }
  vue->scrollTo(ligne);
  QTest::mouseClick(vue->viewport(), bouton, {}, vue->visualRect(ligne).center());
  essai::Evenements();
}

}  // namespace essai
