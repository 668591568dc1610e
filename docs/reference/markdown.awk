# Gives headings and links of the guides the labels that Doxygen resolves. GitHub makes anchors of
# headings by itself. usage: awk -f markdown.awk docs/log.md

# A path as a label: what stands behind the project's folder, "docs/log.md" becomes "docs-log".
function pageOf(path,   part, n, i, kept, k, label) {
  n = split(path, part, "/")
  for (i = 1; i <= n; i++) {
    if (part[i] == "..") k--
    else kept[++k] = part[i]
  }
  for (i = (k > 2 && kept[k - 2] == "examples" ? k - 2 : k - 1); i <= k; i++) label = label (label == "" ? "" : "-") kept[i]
  sub(/\.md$/, "", label)
  return label
}

# As GitHub does it.
function anchorOf(heading) {
  gsub(/`/, "", heading)
  heading = tolower(heading)
  gsub(/[^a-z0-9 _-]/, "", heading)
  gsub(/ /, "-", heading)
  return heading
}

function labelOf(link,   file, anchor, at) {
  at = index(link, "#")
  file = at ? substr(link, 1, at - 1) : link
  anchor = at ? substr(link, at + 1) : ""
  return "#" (file == "" ? page : pageOf(folder "/" file)) (anchor == "" ? "" : "--" anchor)
}

FNR == 1 {
  page = pageOf(FILENAME)
  folder = FILENAME
  sub(/\/[^\/]*$/, "", folder)
}

/^```/ {
  inBlock = !inBlock
  sub(/^```[a-z]+/, "```")
}

inBlock { print; next }

/^#+ / {
  heading = $0
  sub(/^#+ /, "", heading)
  print $0 " {#" page (/^# / ? "" : "--" anchorOf(heading)) "}"
  next
}

# Here, the reference is at hand, and the header a page of it.
/^\| reference \|/ {
  sub(/reference/, "<a href=\"modules.html\">reference</a>")
  sub(/ by `.*` /, " ")
}

# Doxygen shows backquotes in the text of a link to a label as they are.
function withoutCode(text,   start) {
  for (start = length(text); start > 0 && substr(text, start, 1) != "["; start--);
  return substr(text, 1, start - 1) plain(substr(text, start))
}

function plain(text) {
  gsub(/`/, "", text)
  return text
}

# For Doxygen code with an apostrophe in it needs two backquotes.
function withQuotes(line,   parts, n, i, all) {
  n = split(line, parts, "`")
  if (n % 2 == 0) return line # goes on in another line
  for (i = 1; i <= n; i++) {
    if (i % 2) all = all parts[i]
    else if (parts[i] ~ /\047/) all = all "``" parts[i] "``"
    else all = all "`" parts[i] "`"
  }
  return all
}

{
  rest = withQuotes($0)
  done = ""
  while (match(rest, /\]\([^)]*\)/)) {
    link = substr(rest, RSTART + 2, RLENGTH - 3)
    text = substr(rest, 1, RSTART - 1)
    if (link ~ /^#/ || link ~ /^[^:]*\.md(#.*)?$/) {
      link = labelOf(link)
      text = withoutCode(text)
    }
    sub(/^.*\/src\/api\/exports\.h$/, "exports_8h.html", link)
    done = done text "](" link ")"
    rest = substr(rest, RSTART + RLENGTH)
  }
  print done rest
}
