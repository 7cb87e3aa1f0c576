// Small operations on the drawing model. They work on the document's arrays and refresh nothing.
//
// A look-up by one code is a scan with the first match. Who asks for all codes makes an `IndexCodes` once and calls
// the forms that take it, so that no pass costs points times paths.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "core/Document.h"

namespace ovelin {

// Where each code stands first: in TraceInitial and in Sequences, as of the moment it was made.
class IndexCodes {
 public:
  IndexCodes();
  [[nodiscard]] std::int32_t PremierPoint(Code2 code) const;  // -1 when there is none
  [[nodiscard]] std::int32_t Fiche(Code2 code) const;         // index in Sequences, -1 when there is none
 private:
  std::unordered_map<std::uint32_t, std::int32_t> points_;
  std::unordered_map<std::uint32_t, std::int32_t> fiches_;
};

// A run of equal `Seq`.
struct Etendue {
  Code2 code;
  std::int32_t premier = 0;
  std::int32_t nombre = 0;
};
// The runs of TraceInitial in order. A code that stands in two runs comes twice.
std::vector<Etendue> EtenduesSequences();
// One code for each change of `Seq`, in order.
std::vector<Code2> ListeCodes();

// Look-up. A scan is bounded by the array whatever NbPoints says.
std::int32_t IndexSequence(Code2 code);
std::int32_t NbPointsSequence(std::int32_t premier);
std::int32_t EncombrementSequence(std::int32_t premier, float& xmin, float& xmax, float& ymin, float& ymax);
void EncombrementSelection(float& xmin, float& xmax, float& ymin, float& ymax, int tout);
// Bounds of the document, from all its points; untouched when there are none. The status bar follows.
void EncombrementGeneral();
PointTrace CentreSelection();
Code2 PlusGrandCode();
std::int32_t NbSequences();
Code2 CodeSuivant(Code2 code);

// Records
struct ProprietesSequence {
  Drapeau Poche = Faux;
  Drapeau Fraiser = Vrai;
  double Profondeur = 0;
  std::int16_t Decalage = 1;
  bool operator==(const ProprietesSequence&) const = default;
};
bool LitSequence(Code2 code, ProprietesSequence& p);
bool LitSequence(const IndexCodes& index, Code2 code, ProprietesSequence& p);
double LitProfondeur(Code2 code);
Drapeau LitFraiser(Code2 code);
Drapeau EstSelectionnee(Code2 code);
void SelectionCommune(ProprietesSequence& p);
void EcritSequence(Code2 code, const ProprietesSequence& p);
void ProfondeurPourTous();

// Selection
// Codes of the selected records in the table's order; with `aFraiserSeules` those alone that take part in the run.
std::vector<Code2> CodesSelectionnes(bool aFraiserSeules = false);
void SelectionneTout();
void InverseSelection();
void DeselectionneTout();
void BasculeSelection(Code2 code);
std::int32_t NbSelectionnees(Code2& dernier);
std::int32_t NbAFraiser(Code2& dernier);
void SelectionPrecedente();
void SelectionSuivante();

// Points
double DistancePoints(const PointTrace& a, const PointTrace& b);  // mm, differences formed in 32 bits
// A run that ends where it starts, without tolerance. A single point is closed, an empty run isn't.
bool EstFermee(const Etendue& e);
void InserePoint(std::int32_t index, const PointTrace& point);
void RemplaceSequence(Code2 code, const std::vector<PointTrace>& points);
void InverseSequence(Code2 code);
void InverseEtendue(std::int32_t premier);  // the same for the run that begins there; -1: nothing
void FermeSequences();
void DeplaceSelection(int direction, float distance);  // 1: X, 3: Y; mm
void SupprimeSelection();

}  // namespace ovelin
