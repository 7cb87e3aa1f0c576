// Ghostscript's own protection keeps a drawing from other files; what it does not keep is bounded by the process
// around it.
#include "closed/pathwerk/lecture/eps/Processus.h"

#include <array>

namespace pathwerk::lecture::eps {

namespace {

using processus::IssueOutil;

constexpr const char* NomPrologue = "prologue.ps";

Erreur ErreurDe(IssueOutil issue) {
  switch (issue) {
    case IssueOutil::Fini:
      return Erreur::Aucune;
    case IssueOutil::Absent:
      return Erreur::GsAbsent;
    case IssueOutil::Delai:
      return Erreur::GsDelai;
    case IssueOutil::Volume:
      return Erreur::GsVolume;
    case IssueOutil::Ecriture:
      return Erreur::Ecriture;
    case IssueOutil::Systeme:
      return Erreur::GsErreur;
  }
  return Erreur::GsErreur;
}

}  // namespace

EpsFin LanceGs(const EpsMoyens& moyens, std::string_view prologue, std::string_view dessin,
               const std::function<bool(std::string_view)>& recoit, const std::function<void(double)>& attente) {
  const std::string nom(EpsDessin);
  const std::array<processus::DepotOutil, 2> depots{{{NomPrologue, prologue}, {nom, dessin}}};
  processus::FinOutil fin = processus::LanceOutil(
      moyens, {"-q", "-dSAFER", "-dNODISPLAY", "-dNOPAUSE", "-dBATCH", "--permit-file-read=" + nom, NomPrologue},
      depots, recoit, attente);
  // Which of the two files it was says nothing to a user.
  if (fin.issue == IssueOutil::Ecriture) fin.detail = nom;
  return {ErreurDe(fin.issue), std::move(fin.detail), fin.code};
}

}  // namespace pathwerk::lecture::eps
