// The records of the paths in force, the selection among them.
#pragma once

#include <cstdint>
#include <vector>

#include "core/Document.h"
#include "toolpath/chemins/Etendues.h"

namespace ovelin {

bool LitSequence(Code2 code, ProprietesSequence& p);
bool LitSequence(const IndexCodes& index, Code2 code, ProprietesSequence& p);
double LitProfondeur(Code2 code);
Drapeau LitFraiser(Code2 code);
Drapeau EstSelectionnee(Code2 code);
void SelectionCommune(ProprietesSequence& p);
Drapeau IlotCommun();  // are the selected paths islands? Mixte where they differ
void EcritSequence(Code2 code, const ProprietesSequence& p);
void ProfondeurPourTous();

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

}  // namespace ovelin
