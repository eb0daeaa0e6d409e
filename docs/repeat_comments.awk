# Gives every declaration of a run the comment that stands above the first, for Doxygen.
/^\/\*\*/ { comment = ""; is_comment = 1 }
is_comment {
  comment = comment $0 "\n"
  if (/\*\//) is_comment = 0
  is_said = 1
  print
  next
}
/^MEASDATA_API/ {
  if (!is_said) printf "%s", comment
  is_said = 0
}
{ print }
