// The painting operators are replaced in userdict, where every name of a drawing is looked up; the replacements are
// bound first, so a drawing that redefines "moveto" or "exch" for itself does not reach them. What must survive a
// "restore" is printed at once and never counted here.
//
// Space: Ghostscript keeps paths on a grid of 1/256 device unit. The default matrix is therefore 128 to the point,
// which makes the grid 0.00001 mm and leaves room for drawings of 23 m; numbers are printed as whole sixteenths of
// a device unit.
//
// Records, each on a line of its own: \001TOKEN then
//   F, S, R        a painted path follows: filled, stroked, stroked with round caps; lines m l c h; closed by E
//   I kind         something was left out
//   X name place   the drawing stopped with this error at this byte
//   Z place        the drawing ended without an error, read up to this byte; -1: to its last
#include "closed/pathwerk/lecture/eps/Prologue.h"

namespace pathwerk::lecture::eps {

namespace {

constexpr std::string_view TextePrologue = R"PS(%!
userdict begin
/OVL@f (%stdout) (w) file def
/OVL@b 128 string def
/OVL@u 1 string def
/OVL@m [128 0 0 128 0 0] def
/OVL@id matrix def
/OVL@muet [0] def
/OVL@t 8 dict def
/OVL@w { OVL@f exch writestring } bind def
/OVL@r { (\n\001@JETON@ ) OVL@w OVL@w } bind def
/OVL@n { 16 mul round cvi OVL@b cvs OVL@w OVL@f 32 write } bind def
/OVL@p { exch OVL@n OVL@n } bind def

% kind -> -: prints the current path and ends it
/OVL@trace {
  OVL@muet 0 get 0 eq {
    gsave OVL@id setmatrix
    OVL@r (\n) OVL@w
    { (m ) OVL@w OVL@p (\n) OVL@w }
    { (l ) OVL@w OVL@p (\n) OVL@w }
    { (c ) OVL@w 6 -2 roll OVL@p 4 -2 roll OVL@p OVL@p (\n) OVL@w }
    { (h\n) OVL@w }
    pathforall
    (E) OVL@r (\n) OVL@w
    grestore
  } { pop } ifelse
  newpath
} bind def
% kind -> -: something is left out
/OVL@note {
  OVL@muet 0 get 0 eq { (I ) OVL@r OVL@w (\n) OVL@w } { pop } ifelse
} bind def
% proc -> ...: runs it with nothing printed. Widths of glyphs that are procedures are found by painting them.
/OVL@silence {
  OVL@muet 0 OVL@muet 0 get 1 add put
  stopped
  OVL@muet 0 OVL@muet 0 get 1 sub put
  { stop } if
} bind def

% --- text: outlines of the glyphs. Glyphs that are procedures (type 3) paint with the operators of this file.
/OVL@proc { currentfont /FontType get 3 eq } bind def
/OVL@compose { currentfont /FontType get 0 eq } bind def
/OVL@show {
  OVL@proc { show } {
    gsave currentpoint newpath moveto false charpath currentpoint (F) OVL@trace grestore moveto
  } ifelse
} bind def
/OVL@show1 { OVL@u 0 3 -1 roll put OVL@u OVL@show } bind def
/ashow {
  OVL@compose { (ashow) OVL@note OVL@show pop pop } {
    { OVL@show1 2 copy rmoveto } forall pop pop
  } ifelse
} bind def
/widthshow {
  OVL@compose { (widthshow) OVL@note OVL@show pop pop pop } {
    { dup OVL@show1 1 index eq { 2 index 2 index rmoveto } if } forall pop pop pop
  } ifelse
} bind def
/awidthshow {
  OVL@compose { (awidthshow) OVL@note OVL@show 5 { pop } repeat } {
    { dup OVL@show1 3 index eq { 4 index 4 index rmoveto } if 2 copy rmoveto } forall 5 { pop } repeat
  } ifelse
} bind def
% i proc str -> ...: one glyph, then the procedure with this code and the next
/OVL@kshow1 {
  dup 3 index 1 getinterval OVL@show
  2 index 1 add 1 index length lt {
    dup 3 index get exch 3 index 1 add get
    4 -1 roll pop 3 -1 roll exec
  } { pop pop pop } ifelse
} bind def
/kshow {
  OVL@compose { (kshow) OVL@note OVL@show pop } {
    dup length 1 sub 0 1 3 -1 roll 5 -2 roll /OVL@kshow1 load /exec cvx 4 array astore cvx for
  } ifelse
} bind def
% code proc -> ...
/OVL@cshow1 {
  exch dup 1 string dup 0 4 -1 roll put { stringwidth } OVL@silence 4 -1 roll exec
} bind def
/cshow {
  OVL@proc {
    exch /OVL@cshow1 load /exec cvx 3 array astore cvx forall
  } { cshow } ifelse
} bind def
% i str numbers mode -> -: one glyph, then to its place plus the numbers
/OVL@xy1 {
  OVL@t begin
  /mode exch def /arr exch def /str exch def /i exch def
  currentpoint
  mode 1 eq { exch arr i get add exch } if
  mode 2 eq { arr i get add } if
  mode 3 eq { arr i 2 mul 1 add get add exch arr i 2 mul get add exch } if
  str i 1 getinterval
  end
  OVL@show moveto
} bind def
/OVL@xy {
  OVL@compose 2 index type /stringtype eq or { (xshow) OVL@note pop pop OVL@show } {
    2 index length 1 sub 0 1 3 -1 roll 6 -3 roll /OVL@xy1 load /exec cvx 5 array astore cvx for
  } ifelse
} bind def
/xshow { 1 OVL@xy } bind def
/yshow { 2 OVL@xy } bind def
/xyshow { 3 OVL@xy } bind def
% font name -> font that has this glyph as its code 0
/OVL@seul {
  exch dup length 2 add dict begin
  { 1 index /FID ne { def } { pop pop } ifelse } forall
  /Encoding 256 array def
  0 1 255 { Encoding exch /.notdef put } for
  Encoding 0 3 -1 roll put
  /OVL@police currentdict end definefont
} bind def
/glyphshow {
  OVL@proc { glyphshow } {
    dup type /nametype eq OVL@compose not and {
      currentfont exch 1 index exch OVL@seul setfont (\000) OVL@show setfont
    } { (glyphshow) OVL@note glyphshow } ifelse
  } ifelse
} bind def
/charpath { { charpath } OVL@silence } bind def
/stringwidth { { stringwidth } OVL@silence } bind def
/show { OVL@show } bind def
% A cached glyph would be painted once only.
/setcachedevice { 4 { pop } repeat setcharwidth } bind def
/setcachedevice2 { 8 { pop } repeat setcharwidth } bind def

% --- areas and lines
/OVL@rect1 { 4 2 roll moveto 1 index 0 rlineto 0 exch rlineto neg 0 rlineto closepath } bind def
/OVL@tableau { type dup /arraytype eq exch /packedarraytype eq or } bind def
/OVL@rects {
  dup OVL@tableau {
    0 4 2 index length 4 sub { 1 index exch 4 getinterval aload pop OVL@rect1 } for pop
  } {
    dup type /stringtype eq { pop (rectangles) OVL@note } { OVL@rect1 } ifelse
  } ifelse
} bind def
% drops the matrix that may follow the numbers
/OVL@sansmatrice { dup OVL@tableau { dup length 6 eq { pop } if } if } bind def
/OVL@trait { currentlinecap 1 eq { (R) } { (S) } ifelse OVL@trace } bind def
/rectfill { gsave newpath OVL@rects (F) OVL@trace grestore } bind def
/rectstroke { gsave newpath OVL@sansmatrice OVL@rects OVL@trait grestore } bind def
/ufill { gsave newpath uappend (F) OVL@trace grestore } bind def
/ueofill { gsave newpath uappend (F) OVL@trace grestore } bind def
/ustroke {
  gsave newpath
  dup OVL@tableau { dup length 6 eq { dup 0 get type dup /integertype eq exch /realtype eq or { pop } if } if } if
  uappend OVL@trait grestore
} bind def
/fill { (F) OVL@trace } bind def
/eofill { (F) OVL@trace } bind def
/stroke { OVL@trait } bind def

% --- left out. Images still read their data.
/image { (image) OVL@note image } bind def
/imagemask { (image) OVL@note imagemask } bind def
/colorimage { (image) OVL@note colorimage } bind def
/shfill { pop (shading) OVL@note } bind def
/clip { (clip) OVL@note } bind def
/eoclip { (clip) OVL@note } bind def
/rectclip {
  (clip) OVL@note
  dup OVL@tableau 1 index type /stringtype eq or { pop } { 4 { pop } repeat } ifelse newpath
} bind def
/initclip { } bind def
% The page. Its outline is no drawing; three corners in one place mark it.
/clippath {
  matrix currentmatrix OVL@m setmatrix
  newpath 0 0 moveto 0 0 lineto 0 0 lineto 595 0 lineto 595 842 lineto 0 842 lineto closepath
  setmatrix
} bind def

% --- pages and devices
% The end of a drawing is ours to tell.
/quit { stop } def
/showpage { } def
/copypage { } def
/erasepage { } def
/setpagedevice { pop } bind def
/setdevice { pop } bind def
/nulldevice { } def
[ /letter /note /legal /ledger /11x17 /a0 /a1 /a2 /a3 /a4 /a5 /a6 /a4small /lettersmall /b4 /b5 ] { { } def } forall
/initmatrix { OVL@m setmatrix } bind def
/defaultmatrix { OVL@m exch copy } bind def
/initgraphics {
  OVL@m setmatrix newpath 1 setlinewidth 0 setlinecap 0 setlinejoin [] 0 setdash 0 setgray 10 setmiterlimit
} bind def

/OVL@d (@FICHIER@) (r) file def
/OVL@dessin { userdict /OVL@d get cvx exec } bind def
% What the drawing left on the stack goes first: it may be all the memory that there is.
/OVL@fin {
  { clear true } { clear false } ifelse
  $error /newerror get and {
    (X ) OVL@r $error /errorname get OVL@b cvs OVL@w ( ) OVL@w
  } { (Z ) OVL@r } ifelse
  { OVL@d fileposition } stopped { pop -1 } if OVL@b cvs OVL@w (\n) OVL@w
  OVL@f flushfile
} bind def
end
% The saved state is where "grestoreall" of a drawing goes back to.
OVL@m setmatrix save pop
{ OVL@dessin } stopped OVL@fin
userdict /quit undef systemdict /quit get exec
)PS";

void Remplace(std::string& texte, std::string_view marque, std::string_view par) {
  for (std::size_t p = texte.find(marque); p != std::string::npos; p = texte.find(marque, p + par.size())) {
    texte.replace(p, marque.size(), par);
  }
}

}  // namespace

std::string EpsPrologue(std::string_view jeton, std::string_view fichier) {
  std::string texte(TextePrologue);
  Remplace(texte, "@JETON@", jeton);
  Remplace(texte, "@FICHIER@", fichier);
  return texte;
}

}  // namespace pathwerk::lecture::eps
