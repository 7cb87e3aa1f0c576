// Reads a G-code file with the interpreter of cncjs and prints each move: "L G0|G1 x y z", "A G2|G3 x y z cx cy".
const fs = require('fs');
const Toolpath = require('gcode-toolpath');

const moves = [];
const toolpath = new Toolpath({
  addLine: (modal, from, to) => moves.push(`L ${modal.motion} ${to.x} ${to.y} ${to.z}`),
  addArcCurve: (modal, from, to, centre) =>
    moves.push(`A ${modal.motion} ${to.x} ${to.y} ${to.z} ${centre.x} ${centre.y}`),
});
toolpath.loadFromStringSync(fs.readFileSync(process.argv[2], 'latin1'));
console.log(moves.join('\n'));
