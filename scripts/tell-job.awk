#!/usr/bin/awk -f
# Tells a job of the bench in plain words: the comments of its script as headings, below each one what the
# bench answered to the commands that follow it. Arguments: the script, the bench's answers.

BEGIN { commands = 0; done = 0 }

# The answers: blocks that end with `ok` or `error: REASON`.
FNR != NR {
  if (/^\| /) {
    answer[done] = answer[done] "      " substr($0, 3) "\n"
  } else {
    outcome[done++] = $0
  }
  next
}

# The script.
/^# / { heading[commands] = heading[commands] "* " substr($0, 3) "\n"; next }
NF { command[commands++] = $0 }

END {
  for (i = 0; i < commands; i++) {
    printf "%s", heading[i]
    if (!(i in outcome)) outcome[i] = "no answer"
    printf "    %s%s\n", command[i], outcome[i] == "ok" ? "" : "   --> " outcome[i]
    printf "%s", answer[i]
  }
}
