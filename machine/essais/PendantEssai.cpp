#include "machine/essais/PendantEssai.h"

#include <utility>

#include "controller/ClsCdeZENIK.h"
#include "core/RunCourant.h"
#include "machine/TableCourante.h"

namespace ovelin {

bool MachineBouge() { return OperationCarte || RunActif || TestEnCours || CdeZENIK->EnCours != Faux; }

PendantEssai::PendantEssai() : broche_(std::exchange(BrocheAuto, std::int16_t{0})) {
  TestEnCours = OperationCarte = true;
}

PendantEssai::~PendantEssai() {
  TestEnCours = OperationCarte = false;
  BrocheAuto = broche_;
}

}  // namespace ovelin
