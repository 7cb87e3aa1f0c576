// A pass over traces as a value: what it computes goes in as a copy, what comes of it is put into the table whole
// or not at all. It may be ended from another thread.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <vector>

#include "base/Arret.h"
#include "core/Document.h"
#include "toolpath/traces/NoyauTrace.h"

namespace ovelin {

struct TravailTraces {
  Document document;         // its traces are not needed
  bool toutes = false;       // all paths of the drawing, and the traces are numbered
  std::vector<Code2> codes;  // these paths, in their order; where `toutes`, once more behind all: without a number
  ParametresTrace parametres;
};

struct IssueTraces {
  bool entiere = false;  // false: it was ended before, and the rest says nothing
  bool toutes = false;   // the whole table, also where a failed path has asked for that (TraceManque)
  bool reussie = false;  // a path came to its end
  std::vector<SequenceDecalee> traces;
};

// Computes on this thread, on others beside it where there are cores, and calls no service. It ends soon after
// `arret` has been told. `avance` is called before each path, on this thread.
IssueTraces CalculePasse(const TravailTraces& travail, const base::Arret& arret,
                         const std::function<void()>& avance);

// The outcome of a pass that came to its end, put into the table: the entries of each path where those of before
// stood, and behind the others for a path that had none.
void PoseTraces(std::vector<SequenceDecalee>& traces, IssueTraces&& issue);

// The entries of these paths leave the table.
void OteTraces(std::vector<SequenceDecalee>& traces, std::span<const Code2> codes);

// One of these paths failed, or is too short to be offset: the table isn't what computing all would make of it. An
// island has no trace and wants none.
bool TraceManque(const Document& document, std::span<const SequenceDecalee> traces, std::span<const Code2> codes,
                 const ParametresTrace& parametres);

// Would both have the same traces? By the bits of the points, and what the records say of the side of the tool.
bool MemeSource(const Document& a, const Document& b);

// What the paths cost, about, in points of an outline: a pocket makes many rings out of few points. 0 for codes
// that are not there.
std::size_t PoidsTraces(const Document& document, std::span<const Code2> codes);

}  // namespace ovelin
