#include "closed/pathwerk/Formats.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "closed/pathwerk/lecture/FormatDeDessin.h"
#include "closed/pathwerk/lecture/dat/Dat.h"
#include "closed/pathwerk/lecture/dxf/Dxf.h"
#include "closed/pathwerk/lecture/eps/Eps.h"
#include "closed/pathwerk/lecture/excellon/Excellon.h"
#include "closed/pathwerk/lecture/hpgl/Hpgl.h"
#include "closed/pathwerk/lecture/pdf/Pdf.h"
#include "closed/pathwerk/lecture/svg/Svg.h"

namespace pathwerk {

namespace {

using namespace std::string_view_literals;

constexpr std::array ExtensionsDat{"DAT"sv};
constexpr std::array ExtensionsHpgl{"PLT"sv, "PRN"sv, "HPGL"sv};
constexpr std::array ExtensionsOvl{"OVL"sv};
constexpr std::array ExtensionsDxf{"DXF"sv};
constexpr std::array ExtensionsExcellon{"DRD"sv, "DRL"sv};
constexpr std::array ExtensionsEps{"EPS"sv};
constexpr std::array ExtensionsSvg{"SVG"sv};
constexpr std::array ExtensionsPdf{"PDF"sv};

// In the order of the open dialog. Contents are looked at from the last row to the first: what is told most surely
// stands below, and two numbers on a line, which are many things, above.
constexpr std::array Table{
    LigneFormat{{"DAT", ExtensionsDat, "DAT", 3}, lecture::EstDat, lecture::dat::LireDat, true},
    LigneFormat{{"HPGL", ExtensionsHpgl, "PLT", 2}, lecture::EstHpgl, lecture::hpgl::LireHpgl, false},
    LigneFormat{{"OVL", ExtensionsOvl, "OVL", 8}, nullptr, nullptr, false},
    LigneFormat{{"DXF", ExtensionsDxf, "DXF", 1}, lecture::EstDxf, lecture::dxf::LireDxf, true},
    LigneFormat{{"DRL", ExtensionsExcellon, "DRL", 4}, lecture::EstExcellon, lecture::excellon::LireExcellon, true},
    LigneFormat{{"EPS", ExtensionsEps, "", 5}, lecture::EstEps, lecture::eps::LireEps, false},
    LigneFormat{{"SVG", ExtensionsSvg, "", 6}, lecture::EstSvg, lecture::svg::LireSvg, false},
    LigneFormat{{"PDF", ExtensionsPdf, "", 7}, lecture::EstPdf, lecture::pdf::LirePdf, false},
};

}  // namespace

std::vector<FormatConnu> Formats() {
  std::vector<FormatConnu> formats;
  formats.reserve(std::size(Table));
  for (const LigneFormat& ligne : Table) formats.push_back(ligne.connu);
  return formats;
}

const LigneFormat* TrouveFormat(const std::string& extension, std::string_view data) {
  const auto parNom = std::find_if(Table.begin(), Table.end(), [&extension](const LigneFormat& f) {
    const auto e = f.connu.Extensions;
    return f.lit != nullptr && std::find(e.begin(), e.end(), extension) != e.end();
  });
  if (parNom != Table.end()) return &*parNom;
  const auto parContenu = std::find_if(
      Table.rbegin(), Table.rend(), [data](const LigneFormat& f) { return f.flaire != nullptr && f.flaire(data); });
  return parContenu == Table.rend() ? nullptr : &*parContenu;
}

}  // namespace pathwerk
