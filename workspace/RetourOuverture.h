// What an opening does beside the document, and the way back from all of it while the tool path is computed.
#pragma once

#include <functional>
#include <string>

#include "base/SansCopie.h"
#include "closed/Pathwerk.h"
#include "core/Reglages.h"
#include "machine/TableMachine.h"
#include "toolpath/PasseTraces.h"
#include "workspace/Module_Ouverture.h"

namespace ovelin {

// Made before anything changes. Where nothing can be taken back, without a window, its effects come at their places
// in the opening. Where the user may take the opening back, or it runs out of memory, those that destroy (the steps
// of undo of the drawing before, the bytes of the file) and those that he would find changed (the key "Fichier",
// the recent list) wait until the drawing stands with its tool path.
class RetourOuverture : base::SansCopie {
 public:
  // `rapport`: of the drawing in force.
  RetourOuverture(const std::string& chemin, const OptionsOuverture& options, pathwerk::RapportLecture& rapport);

  // At once, or put off.
  void CommenceCles();
  void CommenceFichiers();
  // The tool path of the drawing that stands, and behind it what was put off. False: the user has taken the opening
  // back, and all is as it was before.
  bool Suit();
  // The opening has been refused, which leaves nothing of the drawing before: what was put off comes now.
  void Refuse() { Acheve(); }
  // All can be as before: nothing that destroys has come, and nothing is written.
  [[nodiscard]] bool SeReprend() const { return !fichiers_ && passe_.SeReprend(); }
  // It came to no end. All is as before, where it can be.
  void Reprend();

 private:
  void EcritCles();
  void EffaceAvant();
  void Acheve();
  void RemetReste();

  std::string chemin_;
  OptionsOuverture options_;
  std::string projet_;  // FichierProjet of the drawing before, which gets the key too
  pathwerk::RapportLecture& rapport_;
  pathwerk::RapportLecture rapportAvant_;
  Reglages reglages_;
  TableMachine table_;
  std::string materiau_;
  std::function<void()> travail_;         // retains again the work of before
  bool cles_ = false, fichiers_ = false;  // done
  PasseTraces passe_;
};

}  // namespace ovelin
