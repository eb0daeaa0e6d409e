# Makes links of the function names that stand between backticks, for Doxygen.
# Call: awk -f link_functions.awk api/exports.txt kit/exports.txt PAGE.md
FILENAME ~ /exports\.txt$/ { is_function[$1] = 1; next }
/^```/ { is_code = !is_code }
is_code { print; next }
{
  line = ""
  while (match($0, /`[a-z_]+`/)) {
    name = substr($0, RSTART + 1, RLENGTH - 2)
    word = name in is_function ? "<code>@ref " name " \"" name "\"</code>" : "`" name "`"
    line = line substr($0, 1, RSTART - 1) word
    $0 = substr($0, RSTART + RLENGTH)
  }
  print line $0
}
