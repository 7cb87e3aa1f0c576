#include "toolpath/chemins/CodesNeufs.h"

#include <algorithm>

#include "toolpath/chemins/Etendues.h"

namespace ovelin {

namespace {

bool Permis(Code2 code) {
  const auto permis = [](char16_t c) {
    return c >= u' ' && c <= u'~' && c != u'-' && c != u'$' && c != u'=' && c != u',';
  };
  return permis(code.c[0]) && permis(code.c[1]) && code.c[1] != u' ';
}

}  // namespace

CodesNeufs::CodesNeufs(const Document& document) {
  const std::vector<Code2> codes = CodesDe(document.TraceInitial);
  if (const auto plusGrand = std::max_element(codes.begin(), codes.end()); plusGrand != codes.end()) {
    dernier_ = *plusGrand;
  }
  for (const Code2 code : codes) pris_.insert(code.Cle());
  for (const SequenceInfo& s : document.Sequences) pris_.insert(s.Code.Cle());
}

std::optional<Code2> CodesNeufs::Suivant() {
  Code2 code = CodeSuivant(dernier_);
  while (!Permis(code) || pris_.contains(code.Cle())) {
    if (rang_ >= pathwerk::NbCodes()) return std::nullopt;
    code = pathwerk::CodeDeRang(rang_++);
  }
  pris_.insert(code.Cle());
  dernier_ = code;
  return code;
}

}  // namespace ovelin
