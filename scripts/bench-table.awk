# SPDX-License-Identifier: MIT
# Copies docs/benchmarks.md with new figures between the markers of this kind, and warns on standard
# error of rows that are twice as high as the last ones.
# Variables: kind (full or short), rows and wanted (files with tabs), measured (date and machine).

function key(what, yardstick) { return what "\t" yardstick }

# The figure that is compared: a ratio, or the value itself if the yardstick is a fixed limit.
function isLimit(yardstick) { return yardstick == "limit" || yardstick == "wanted" }

function number(value) { return value < 10 ? sprintf("%.2f", value) : sprintf("%.0f", value) }

function readFiles(   line, part) {
  while ((getline line < wanted) > 0) {
    split(line, part, "\t")
    wants[key(part[1], part[2])] = part[3]
  }
  while ((getline line < rows) > 0) {
    split(line, part, "\t")
    if (isLimit(part[2])) {
      figure = number(part[3]) " " part[5]
      want = part[4] + 0 " " part[5]
    } else {
      figure = number(part[3] / part[4])
      want = wants[key(part[1], part[2])]
    }
    table[++count] = sprintf("| %s | %s | %s | %s | %s |", part[1], part[2], want, figure,
                             part[6] > 0 ? number(part[6]) : "")
    last[count] = key(part[1], part[2])
    now[count] = figure + 0
  }
  if (!count) {
    print "there are no figures in " rows > "/dev/stderr"
    failed = 1
    exit 1
  }
}

function printTable(   i) {
  print ""
  print "Measured on " measured "."
  print ""
  print "| Row | Yardstick | Wanted | Reached | CPU |"
  print "|---|---|---|---|---|"
  for (i = 1; i <= count; ++i)
    print table[i]
  print ""
}

BEGIN {
  FS = " *[|] *"
  begin = "<!-- figures: " kind " -->"
  end = "<!-- end of figures: " kind " -->"
  readFiles()
}

$0 == begin { inside = 1; print; printTable(); next }
$0 == end { inside = 0; found = 1 }
inside && NF > 5 { before[key($2, $3)] = $5 + 0 }
!inside { print }

END {
  if (failed)
    exit 1
  if (!found) {
    print "there is no table of this kind in " FILENAME ": " kind > "/dev/stderr"
    exit 1
  }
  for (i = 1; i <= count; ++i)
    if ((last[i] in before) && before[last[i]] > 0 && now[i] > 2 * before[last[i]]) {
      what = last[i]
      sub("\t", ", compared with ", what)
      printf "warning: %s: %s, last time %s\n", what, now[i], before[last[i]] > "/dev/stderr"
    }
}
