# Turns the plain C comments of exports.h into Doxygen's, and documents what stands under another
# function's comment. usage: awk -f header.awk exports.h

# Doxygen's own characters as plain text.
function plain(text) {
  gsub(/\\/, "\\\\\\\\", text)
  gsub(/</, "\\\\<", text)
  gsub(/@/, "\\\\@", text)
  gsub(/#/, "\\\\#", text)
  return text
}

function endVerbatim() {
  if (verbatim) print "@endverbatim"
  verbatim = 0
}

function beginVerbatim() {
  if (!verbatim) print "@verbatim"
  verbatim = 1
}

# One line of a comment. The log's lines, and tables, keep their columns.
function commentLine(text) {
  if (text ~ /^ *Log[:,]/) {
    endVerbatim()
    print "@par Log"
    if (sub(/^ *Log, /, "", text)) {
      print plain(text)
      text = ""
    }
    beginVerbatim()
    sub(/^ *Log: ?/, "     ", text)
    if (text != "") print text
  } else {
    if (text ~ /^  /) beginVerbatim()
    else endVerbatim()
    print (verbatim ? text : plain(text))
  }
}

# The comment that begins in line i; returns its last line.
function comment(i, head, tail,   text, ends) {
  print head
  do {
    text = lines[i++]
    ends = sub(/ *\*\/ *$/, "", text)
    sub(/^(\/\*| \*) ?/, "", text)
    commentLine(text)
  } while (!ends)
  endVerbatim()
  print tail
  return i - 1
}

# The text at the head of the file, a list of numbered conventions.
function fileComment(i,   text) {
  print "/** @file exports.h"
  print "@brief The public interface of tolvex_dll.dll and libtolvex_dll.so."
  print ""
  while (lines[i] !~ /\*\/$/) {
    text = lines[i++]
    sub(/^(\/\*| \*) ?/, "", text)
    text = plain(text)
    sub(/^ *[0-9]+\. /, "-# ", text)
    print text
  }
  print "*/"
  return i
}

function isAlone(i) {
  while (lines[i] !~ /\*\/ *$/) i++
  return lines[i + 1] == ""
}

# "---- Weighing ----" begins a group; a comment that stands alone below it is about all of it.
function group(i,   title, key) {
  title = lines[i]
  gsub(/^\/\* ---- | ---- \*\/$/, "", title)
  key = title
  gsub(/[^A-Za-z]+/, "_", key)
  endGroup()
  inGroup = 1
  print "/** @defgroup " key " " title
  if (lines[i + 2] ~ /^\/\*/ && isAlone(i + 2)) return comment(i + 2, "", "@{ */")
  print "@{ */"
  return i
}

function endGroup() {
  if (inGroup) print "/** @} */"
  inGroup = 0
}

# The table of result codes: each row of it joined to one line, text by text.
function readCodes(i,   all, line) {
  while (lines[i] ~ /\\$/) {
    line = lines[++i]
    sub(/ *\\$/, " ", line)
    all = all line
  }
  gsub(/" +"/, "", all)
  rows = split(all, row, / +CODE\(/)
  return i
}

function printCodes(   r, part, head) {
  for (r = 2; r <= rows; r++) {
    split(row[r], part, "\"")
    split(part[1], head, ", ")
    printf "  TOLVEX_RESULT_%s = %s, /**< \"%s\": %s @b Remedy: %s */\n",
      head[2], head[1], part[2], part[4], part[6]
  }
}

function declaration(text,   name, main) {
  name = text
  sub(/\(.*/, "", name)
  sub(/.*[ *]/, "", name)
  main = name
  if (documented) described = name
  else if (sub(/_stdcall$/, "", main)) print "/** The same as " main "(), under a second name. */"
  else if (described != "") print "/** @copydoc " described " */"
  documented = 0
  print text
}

{ lines[NR] = $0 }

END {
  for (i = fileComment(1) + 1; i <= NR; i++) {
    line = lines[i]
    if (line ~ /^\/\* ---- .* ---- \*\/$/) {
      i = group(i)
    } else if (line ~ /^\/\*/) {
      i = comment(i, "/**", "*/")
      documented = 1
    } else if (line ~ /^#define TOLVEX_RESULT_CODES/) {
      for (last = readCodes(i); i < last; i++) print lines[i]
      print lines[last]
    } else if (line ~ /^enum tolvex_result/) {
      print line
      printCodes()
      while (lines[i + 1] !~ /^}/) i++
    } else if (line ~ /^#define TOLVEX_API/) {
      print "/** @cond */\n" line "\n/** @endcond */"
    } else if (line ~ /^TOLVEX_API /) {
      declaration(line)
    } else {
      if (line == "") described = "" # what follows has to have a comment of its own
      if (line ~ /^#ifdef __cplusplus/) endGroup()
      if (line ~ /^(#define|  [a-z]).*\/\* .* \*\/$/) sub(/\/\* /, "/**< ", line)
      if (line !~ /^#ifndef/) documented = 0
      print line
    }
  }
}
