// The offset of outlines by an engine that npm has, timed and written down for bench_offset:
//   node moteurs.mjs ENGINE OUTLINES DISTANCE ARC_TOLERANCE SEGMENTS
// ENGINE: "clipper2" or "cavalier". OUTLINES: 32-bit numbers in the order of the machine: how many outlines; of each,
// how many points and whether it is closed; then all coordinates as doubles, mm. DISTANCE: to the left of the path
// when positive. SEGMENTS: x0 y0 x1 y1 of each segment of the results as doubles. To standard output: seconds of
// processor time of the offsets of all outlines, without what brings points into the engine's memory and back.
import fs from 'node:fs';
import path from 'node:path';
import { createRequire } from 'node:module';

const [engine, input, distanceText, toleranceText, output] = process.argv.slice(2);
const distance = Number(distanceText);
const tolerance = Number(toleranceText);
const modules = process.env.NODE_PATH;

function readOutlines(file) {
  const bytes = fs.readFileSync(file);
  const count = bytes.readUInt32LE(0);
  let place = 4 + 8 * count;
  const outlines = [];
  for (let k = 0; k < count; ++k) {
    const points = bytes.readUInt32LE(4 + 8 * k);
    const closed = bytes.readUInt32LE(8 + 8 * k) !== 0;
    const xy = new Float64Array(2 * points);
    for (let i = 0; i < xy.length; ++i, place += 8) xy[i] = bytes.readDoubleLE(place);
    outlines.push({ closed, xy });
  }
  return outlines;
}

function area(xy) {
  let twice = 0;
  for (let i = 0, n = xy.length; i < n; i += 2) {
    const j = (i + 2) % n;
    twice += xy[i] * xy[j + 1] - xy[j] * xy[i + 1];
  }
  return twice / 2;
}

// Each engine: `load(outline)`, `offset(loaded)`, which is timed, `segments(result, add)`, `free(result)`.
async function clipper2() {
  const factory = createRequire(import.meta.url)(path.join(modules, 'clipper2-wasm/dist/umd/clipper2z.js'));
  const lib = await factory();
  const round = lib.JoinType.Round;
  return {
    load({ closed, xy }) {
      const paths = new lib.PathsD();
      paths.push_back(lib.MakePathD(Array.from(xy)));
      // Growing is positive there, whichever way the outline runs; of an open path there is the band on both sides.
      const grow = closed ? (area(xy) > 0 ? -distance : distance) : Math.abs(distance);
      return { paths, grow, end: closed ? lib.EndType.Polygon : lib.EndType.Round };
    },
    offset: (o) => lib.InflatePathsD(o.paths, o.grow, round, o.end, 2, 6, tolerance),
    segments(result, add) {
      for (let k = 0; k < result.size(); ++k) {
        const p = result.get(k);
        for (let i = 0, n = p.size(); i < n; ++i) {
          const a = p.get(i);
          const b = p.get((i + 1) % n);
          add(a.x, a.y, b.x, b.y);
        }
      }
    },
    free: (result) => result.delete(),
  };
}

async function cavalier() {
  // The package is made for bundlers: its module takes the program that lies beside it from the one that loads both.
  const folder = path.join(modules, 'cavalier_contours_wasm');
  const name = 'cavalier_contours_web_ffi_bg';
  const text = fs.readFileSync(path.join(folder, `${name}.js`), 'utf8');
  const own = `${text}\nexport function takes(program) { wasm = program; }\n`;
  const lib = await import(`data:text/javascript;base64,${Buffer.from(own).toString('base64')}`);
  const program = await WebAssembly.instantiate(fs.readFileSync(path.join(folder, `${name}.wasm`)), {
    [`./${name}.js`]: lib,
  });
  lib.takes(program.instance.exports);
  return {
    load({ closed, xy }) {
      const data = new Float64Array((xy.length / 2) * 3);
      for (let i = 0; i < xy.length / 2; ++i) data.set([xy[2 * i], xy[2 * i + 1], 0], 3 * i);
      return new lib.Polyline(data, closed);
    },
    offset: (p) => p.parallelOffset(distance, false),
    segments(result, add) {
      for (const p of result) {
        const flat = p.arcsToApproxLinesData(tolerance);
        const n = flat.length / 2;
        for (let i = 0; i + (p.isClosed ? 0 : 1) < n; ++i) {
          const j = (i + 1) % n;
          add(flat[2 * i], flat[2 * i + 1], flat[2 * j], flat[2 * j + 1]);
        }
      }
    },
    free: (result) => result.forEach((p) => p.free()),
  };
}

const seconds = () => {
  const used = process.cpuUsage();
  return (used.user + used.system) / 1e6;
};

const lib = await { clipper2, cavalier }[engine]();
const loaded = readOutlines(input).map((o) => lib.load(o));
const found = [];
for (const o of loaded) {
  const result = lib.offset(o);
  lib.segments(result, (...s) => found.push(...s));
  lib.free(result);
}
fs.writeFileSync(output, Buffer.from(Float64Array.from(found).buffer));
let rounds = 0;
const begin = seconds();
do {
  for (const o of loaded) lib.free(lib.offset(o));
  ++rounds;
} while (seconds() - begin < 0.5);
console.log((seconds() - begin) / rounds);
