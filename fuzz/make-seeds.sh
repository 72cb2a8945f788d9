#!/bin/sh
# Writes a small seed corpus for every fuzz target into OUT/<target>/:
# files the tool's demo leaves behind, containers sealed by the tool in every
# mode, a few hand-written documents, and what the library's own writers make
# (fuzz_seeds, see SeedWriter.cpp). The committed corpus fuzz/corpus was made
# with it; the build needs the tool (COMMONKIT_BUILD_TOOLS=ON):
#
#   cmake --build build/fuzz --target commonkit fuzz_seeds
#   rm -rf fuzz/corpus && fuzz/make-seeds.sh build/fuzz fuzz/corpus
set -eu

build=${1:?usage: make-seeds.sh BUILD_DIR OUT_DIR}
out=${2:?usage: make-seeds.sh BUILD_DIR OUT_DIR}
tool="$build/tools/commonkit/commonkit"
# The tool is instrumented; its exit-time leak report is of no interest here.
export ASAN_OPTIONS=detect_leaks=0

for target in expressionstream containeropen jsonparser xmllogreader schema filterparser; do
  mkdir -p "$out/$target"
done

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The demo's sample files: an expression stream, action logs (live, cut and
# broken) and containers (signed, and one tampered with).
demo=$("$tool" demo --keep | sed -n 's/^CommonKit demo, working in //p')
cp "$demo"/20/filter.bin "$out/expressionstream/"
"$tool" expr "$demo"/20/filter.bin > "$out/filterparser/demo.sql"
for file in "$demo"/30/*.kol; do cp "$file" "$out/xmllogreader/demo-$(basename "$file")"; done
for file in "$demo"/40/*.box; do cp "$file" "$out/containeropen/demo-$(basename "$file")"; done
rm -rf "$demo"

# Containers in each mode; the target uses the key "fuzz key".
printf 'fuzz key' > "$work/key"
"$tool" keygen --bits 2048 "$work/private.pem" "$work/public.pem" > /dev/null
printf 'Camera 7, zone 3: motion from 07:08:09 to 07:09:10.\n%.0s' 1 2 3 4 5 6 7 8 > "$work/plain.txt"
seal() {
  name=$1
  shift
  "$tool" container create "$work/plain.txt" "$out/containeropen/$name.box" "$@" > /dev/null
}
seal stored
seal compressed --compress 6
seal encrypted --key-file "$work/key"
seal signed --sign "$work/private.pem" --signer fuzz --digest SHA384
seal everything --compress 9 --key-file "$work/key" --sign "$work/private.pem"

# JSON texts.
j=$out/jsonparser
printf '{"a": [1, -2.5e3, true, false, null], "b": {"c": "d\\u00e9\\ud83d\\udcf7"}}' > "$j/object.json"
printf '[18446744073709551615, -9223372036854775808, 1e308, 0.1, "\\"\\\\\\/\\b\\f\\n\\r\\t"]' > "$j/numbers.json"
printf '"Gr\303\274\303\237e \342\202\254 \360\237\223\267"' > "$j/utf8.json"
printf '[[[[[[{"x": [[{}]]}]]]]]]' > "$j/nested.json"

# Action logs with the target's own kinds ("FzzE" with a template, "FzzP"
# without) and the library's error kind.
x=$out/xmllogreader
head='<?xml version="1.0" encoding="UTF-8"?><Entries Version="v0.1" LogFile="f.kol" Date="2014-05-06T07:08:09">'
printf '%s<Entry ID="FzzE" Time="06 May 2014 07:08:09" User="op" Text="a &amp; b" Numb="-12" When="06 May 2014 07:08:09"/><Entry ID="FzzP" User="x" Text="%%1 %%2" Numb="7"/>\n</Entries>\n' "$head" > "$x/closed.kol"
printf '%s<Entry ID="XmlP" srcP="bad %%2" errT="f.kol" errL="2" errC="8"/><Entry ID="Unkn" A="b"/><Entry Text="before id" ID="FzzE"/>' "$head" > "$x/live.kol"
printf '%s<Entry ID="FzzE" Text="&#x1F4F7; K&#xFC;che"></Entry><Other/><!-- c --><![CDATA[x]]>\n</Entries>' "$head" > "$x/mixed.kol"

# Schemas, each followed by a NUL, a value and optionally a NUL and the
# document "other.json".
s=$out/schema
printf '{"type":"object","properties":{"n":{"type":"array","items":{"type":"string"}},"d":{"type":"string","format":"date"}},"required":["n"],"additionalProperties":{"type":"integer","minimum":0}}\000{"n":["a","b"],"d":"2014-05-06","x":3}' > "$s/object"
printf '{"definitions":{"p":{"$id":"#p","type":"object","properties":{"x":{"type":"integer"}}}},"type":"array","items":{"$ref":"#p"},"maxItems":3}\000[{"x":1},{"x":"y"}]' > "$s/anchor"
printf '{"properties":{"o":{"$ref":"other.json#/definitions/t"},"b":{"type":"string","contentEncoding":"base64"}}}\000{"o":"2014-05-06T07:08:09Z","b":"AAE="}\000{"definitions":{"t":{"type":"string","format":"date-time"}}}' > "$s/other"
printf '{"anyOf":[{"type":"number","multipleOf":0.5},{"type":"string","pattern":"^[a-z]+$","maxLength":4}],"not":{"enum":[1,"ab"]}}\0002.5' > "$s/combined"
printf '{"$ref":"#/definitions/a","definitions":{"a":{"$ref":"#/definitions/b"},"b":{"type":"boolean"}}}\000true' > "$s/chain"

# Filters as the SQL printer writes them (the fuzz target's schema has
# a, b, s, d and "my field"), and a few other spellings.
f=$out/filterparser
n=0
while IFS= read -r line; do
  n=$((n + 1))
  printf '%s' "$line" > "$f/filter-$n.sql"
done <<'FILTERS'
(a > 2 AND s = 'it''s') OR  NOT a = 7
a+b+3 > (a-(b*2)) AND d <= 2.5
a- -5 = - -b
 NOT  NOT a IN (1,b,'x',-3)
CASE a WHEN 1 THEN 'one' WHEN 2 THEN s ELSE 'other' END = s
CASE  WHEN a > 1 THEN b ELSE 0 END
CAST((a+b) AS double) > 2.5 OR CAST(my_field AS int) = 3
abs((a-b)) > 3 AND coalesce(a,b,7) < count(DISTINCT a)
((s+'x') LIKE 'a%' ESCAPE '\') AND (s REGEXP 'a.*')
a = 1 = b AND a = b < 1
my_field AS m = 'x' AND a*1e+20 > 5000000000
((~a&b)|a)^(b mod 2)
a > currentDate() AND lower(trim(s)) = upper(s)
case when a=1 then 2 end + a NOT IN (1, 2) <> a % 2
FILTERS

# Action logs, stream device output, settings in every form, meta-type
# images, flat-map documents and saved feature matrices.
"$build/fuzz/fuzz_seeds" "$out"

for target in "$out"/*/; do
  target=$(basename "$target")
  echo "$target: $(ls "$out/$target" | wc -l) seeds"
done
