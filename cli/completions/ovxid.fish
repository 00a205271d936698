# Completion of ovxid's command line in fish. ovxid itself tells what may stand at the cursor. The command
# line of ovxid-replay is that of `ovxid replay`: there, the functions are called with `replay`.

# The words up to the cursor. Only the last one still has its quotes.
function __ovxid_words
    commandline --tokenize --cut-at-cursor --current-process
    string trim --left --chars '\'"' -- (commandline --cut-at-cursor --current-token)
end

function __ovxid_told
    set -l words (__ovxid_words)
    # fish itself would tell of a program that is missing or that a signal ends; this sh does so in silence.
    command sh -c 'ovxid complete -- "$@"; exit' sh $argv $words[2..] 2>/dev/null
end

function __ovxid_wants_files
    string match --quiet 'files *' -- (__ovxid_told $argv)[1]
end

function __ovxid_candidates
    set -l told (__ovxid_told $argv)
    set -l place (string split --max 1 ' ' -- "$told[1]")
    switch "$place[1]"
        case words
            string replace --regex '^' -- $place[2] $told[2..]
        case program
            set -l words (__ovxid_words)
            set -l first (math $place[2] + 2 - (count $argv))
            complete --do-complete (string join ' ' -- (string escape -- $words[$first..-2]) $words[-1])
    end
end

complete --command ovxid --no-files --arguments '(__ovxid_candidates)'
complete --command ovxid --condition __ovxid_wants_files --force-files
complete --command ovxid-replay --no-files --arguments '(__ovxid_candidates replay)'
complete --command ovxid-replay --condition '__ovxid_wants_files replay' --force-files
