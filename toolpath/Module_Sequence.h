// Small operations on the document in force; they refresh nothing. The same look-ups on values are in Etendues.h.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "core/Document.h"
#include "toolpath/Etendues.h"

namespace ovelin {

// Where each code stands first in TraceInitial and in Sequences, as of this moment. Who asks for all codes makes
// one once: a look-up by one code is a scan with the first match.
IndexCodes IndexDocument();

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
// The lowest and the greatest `Seq` in text order; CodeAucun without points.
Code2 PlusPetitCode();
Code2 PlusGrandCode();
std::int32_t NbSequences();

// Records
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
// A run of TraceInitial that ends where it starts, without tolerance.
bool EstFermee(const Etendue& e);
void InserePoint(std::int32_t index, const PointTrace& point);
void RemplaceSequence(Code2 code, const std::vector<PointTrace>& points);
void InverseSequence(Code2 code);
void InverseEtendue(std::optional<std::size_t> premier);  // the same for the run that begins there
void FermeSequences();
void DeplaceSelection(int direction, float distance);  // 1: X, 3: Y; mm
void SupprimeSelection();

}  // namespace ovelin
