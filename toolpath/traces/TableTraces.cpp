#include "toolpath/traces/TableTraces.h"

#include <algorithm>
#include <iterator>

namespace ovelin {

TableTraces::TableTraces(const std::vector<SequenceDecalee>& ancienne) : anciennes_(ancienne.size()) {
  for (std::size_t i = 0; i < ancienne.size(); ++i) {
    const Code2 code = ancienne[i].Seq;
    if (blocs_.empty() || blocs_.back().code != code) {
      blocs_.push_back({code, {{i, i}}});
      parCode_[code.Cle()].push_back(std::prev(blocs_.end()));
    }
    blocs_.back().tranches.front().second = i + 1;
  }
}

TableTraces::Tranche TableTraces::Range(std::vector<SequenceDecalee>&& entrees) {
  const std::size_t debut = anciennes_ + neuves_.size();
  std::move(entrees.begin(), entrees.end(), std::back_inserter(neuves_));
  return {debut, anciennes_ + neuves_.size()};
}

void TableTraces::Remplace(Code2 code, TraceCalculee&& trace) {
  const Issue issue{Range(std::move(trace.entrees)), trace.reussie};
  issues_[code.Cle()] = issue;
  Pose(code, issue);
}

void TableTraces::Repete(Code2 code) {
  if (const auto issue = issues_.find(code.Cle()); issue != issues_.end()) Pose(code, issue->second);
}

void TableTraces::Pose(Code2 code, const Issue& issue) {
  const bool vide = issue.tranche.first == issue.tranche.second;
  auto& siens = parCode_[code.Cle()];
  if (siens.empty()) {
    if (vide) return;
    blocs_.push_back({code, {issue.tranche}});
    siens.push_back(std::prev(blocs_.end()));
    return;
  }
  const Chaine::iterator bloc = siens.front();
  if (vide) {
    Retire(bloc);
    return;
  }
  bloc->tranches = {issue.tranche};
  if (!issue.reussie) CoupeDerriere(bloc);
}

// Blocks go from the end of the chain, so each is the last of its code.
void TableTraces::CoupeDerriere(Chaine::iterator bloc) {
  while (std::prev(blocs_.end()) != bloc) {
    parCode_[blocs_.back().code.Cle()].pop_back();
    blocs_.pop_back();
  }
}

// A first block without entries leaves the chain; its neighbours become one when they are of one code.
void TableTraces::Retire(Chaine::iterator bloc) {
  parCode_[bloc->code.Cle()].pop_front();
  const Chaine::iterator apres = blocs_.erase(bloc);
  if (apres == blocs_.end() || apres == blocs_.begin()) return;
  const Chaine::iterator avant = std::prev(apres);
  if (avant->code != apres->code) return;
  avant->tranches.insert(avant->tranches.end(), apres->tranches.begin(), apres->tranches.end());
  auto& siens = parCode_[apres->code.Cle()];
  siens.erase(std::find(siens.begin(), siens.end(), apres));
  blocs_.erase(apres);
}

std::vector<SequenceDecalee> TableTraces::Rend(std::vector<SequenceDecalee>& ancienne) {
  std::vector<SequenceDecalee> table;
  for (const Bloc& bloc : blocs_) {
    for (const Tranche& t : bloc.tranches) {
      for (std::size_t i = t.first; i < t.second; ++i) {
        table.push_back(std::move(i < anciennes_ ? ancienne[i] : neuves_[i - anciennes_]));
      }
    }
  }
  return table;
}

}  // namespace ovelin
