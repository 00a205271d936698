# shellcheck shell=bash
# Completion of ovxid's command line in bash. ovxid itself tells what may stand at the cursor. The command
# line of ovxid-replay is that of `ovxid replay`.

# bash has taken the line apart at each of COMP_WORDBREAKS, such as "=". Puts it together again up to the
# cursor: `words` are its words, and `starts` where in COMP_WORDS each of them starts.
_ovxid_words() {
  local i blanks word line=${COMP_LINE:0:COMP_POINT}
  for ((i = 0; i <= COMP_CWORD; i++)); do
    blanks=${line%%[![:blank:]]*}
    line=${line#"$blanks"}
    word=${COMP_WORDS[i]}
    ((i < COMP_CWORD)) || word=$line
    line=${line#"$word"}
    if [[ $i -eq 0 || -n $blanks ]]; then
      starts+=("$i")
      words+=("$word")
    else
      words[-1]+=$word
    fi
  done
}

# _ovxid_offer CANDIDATE...: offers those that begin as the word does.
_ovxid_offer() {
  local candidate quoted kept='' typed=${words[-1]} breaks=${COMP_WORDBREAKS//[^=:]/}
  # readline replaces no more than what stands behind the last break.
  [[ -z $breaks || $typed != *["$breaks"]* ]] || kept=${typed%"${typed##*["$breaks"]}"}
  for candidate; do
    printf -v quoted %q "$candidate"
    if [[ $candidate != "${plain[-1]}"* ]]; then
      continue
    elif [[ $typed == [\"\']* && $quoted != "$candidate" ]]; then
      # Behind an open quote, a backslash would not be taken for a quote.
      continue
    fi
    COMPREPLY+=("${quoted#"$kept"}")
  done
}

# _ovxid_program START: completes the command line that starts there in COMP_WORDS.
_ovxid_program() {
  if declare -F _command_offset >/dev/null; then
    _command_offset "$1"
  elif ((COMP_CWORD == $1)); then
    mapfile -t COMPREPLY < <(compgen -c -- "${words[-1]}")
  else
    compopt -o default
  fi
}

_ovxid() {
  local words=() starts=() told=() verb=()
  COMPREPLY=()
  if [[ ${COMP_WORDS[COMP_CWORD - 1]} == [\<\>]* ]]; then
    compopt -o default
    return
  fi
  _ovxid_words
  local plain=("${words[@]//[\"\'\\]/}")
  [[ ${plain[0]##*/} != ovxid-replay ]] || verb=(replay)
  mapfile -t told < <(command ovxid complete -- "${verb[@]}" "${plain[@]:1}" 2>/dev/null)
  case ${told[0]-} in
    "words "*)
      local candidates=("${told[@]:1}")
      candidates=("${candidates[@]%%$'\t'*}")
      _ovxid_offer "${candidates[@]/#/"${told[0]#words }"}"
      ;;
    "files "*) compopt -o default ;;
    "program "*) _ovxid_program "${starts[${told[0]#program } + 1 - ${#verb[@]}]}" ;;
  esac
}

complete -F _ovxid ovxid ovxid-replay
