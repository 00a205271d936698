# For tests/completion/check: ^T inserts all completions, ^P tells the line and clears it.
complete --command test-program --no-files --arguments 'alpha beta'

function tell_line
    commandline >$WORK/answers
    commandline ''
end

function insert_all
    set -l before (string replace --regex '[^ ]*$' '' -- (commandline))
    commandline "$before"(complete --do-complete (commandline) | string replace --regex '\t.*' '' | string join ' ')
end

bind \cp tell_line
bind \ct insert_all
function tell_ready --on-event fish_prompt
    functions --erase tell_ready
    echo ready >$WORK/answers
end
