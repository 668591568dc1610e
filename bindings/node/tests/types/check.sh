#!/usr/bin/env bash
# Checks the sources and the declarations with the compiler of TypeScript: what a program can write has to be declared,
# for modules of both kinds, and what is declared has to be there.
# usage: check.sh SOURCE NODE_MODULES
set -euo pipefail
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cp -r "$1/." "$folder"
ln -s "$(realpath "$2")" "$folder/node_modules"
cd "$folder"
node node_modules/typescript/bin/tsc -p tsconfig.json

# Each name of the declarations is exported, and the other way round, in both kinds of modules.
declared=$(sed -nE 's/^export declare (function|class|const) (\w+).*/\2/p; s/^export \{ (\w+), (\w+) \};/\1\n\2/p' index.d.ts | sort -u)
for names in "$(node -p 'Object.keys(require("./index.js")).sort().join("\n")')" \
  "$(node --input-type=module -e 'console.log(Object.keys(await import("./index.mjs")).filter((n) => n !== "default").sort().join("\n"))')"; do
  diff <(LC_ALL=C sort -u <<<"$declared") <(LC_ALL=C sort -u <<<"$names")
done

# Each member of the classes, too.
cat >members.cjs <<'END'
const fs = require('node:fs');
const tolvex = require('./index.js');
let failures = 0;
const text = fs.readFileSync('index.d.ts', 'utf8');
for (const [, name, body] of text.matchAll(/^export declare class (\w+)[^{]*\{\n(.*?)^\}/gms)) {
  if (name.endsWith('Error')) continue;
  const of = tolvex[name];
  const declared = new Set([...body.matchAll(/^  (static |readonly )?(\w+)[(:]/gm)].map(([, , member]) => member));
  const there = new Set([...Object.getOwnPropertyNames(of.prototype), ...Object.getOwnPropertyNames(of)]
    .filter((member) => !['length', 'name', 'prototype'].includes(member) || Object.hasOwn(of.prototype, member)));
  const own = ['type', 'name', 'constructor']; // set by the constructor, or there without a word
  for (const member of declared) {
    if (!there.has(member) && !own.includes(member)) { failures += 1; console.log(`FAILED: ${name}.${member} is declared, but not there`); }
  }
  for (const member of there) {
    if (!declared.has(member) && !own.includes(member)) { failures += 1; console.log(`FAILED: ${name}.${member} is there, but not declared`); }
  }
}
process.exit(failures ? 1 : 0);
END
node members.cjs
echo "the declarations are those of the sources"
