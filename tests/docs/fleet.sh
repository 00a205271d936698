# shellcheck shell=bash
# What happens to the board of docs/fleet.md.

a_board_with_a_node() {
  mkdir units
  cp /lib/systemd/system/{sysinit,timers}.target units
  cp "$OVXID_SOURCE/systemd/ovxid.service.in" units/ovxid.service
  mount --bind units /lib/systemd/system
  mount -t tmpfs run /run
  mount -t tmpfs doc /usr/share/doc
  mkdir -p /run/ovxid /etc/systemd/system /usr/share/doc/ovxid /proc/device-tree/orvanix
  cp -r "$OVXID_SOURCE/examples/fleet" /usr/share/doc/ovxid/examples
  printf '12\0' >/proc/device-tree/orvanix/boardid
  printf 'Kestrel Rev B\0' >/proc/device-tree/orvanix/description
  printf 'the "north" gate\0' >/proc/device-tree/orvanix/site
}

the_service_runs() {
  sed -n 's/^ExecStart=@ovxid_program@//p' /lib/systemd/system/ovxid.service | xargs ovxid
}

three_boards_and_a_control_host() {
  export OVXID_BOARDS=$PWD/../boards ANSIBLE_FORKS=1
  # shellcheck source=tests/fleet/fleet.sh
  source "$OVXID_SOURCE/tests/fleet/fleet.sh"
  board gate-1
  property boardid '7\0'
  property description 'Field Node\0'
  board gate-2
  kernel 6.1.55-kestrel2
  board office
  kernel 6.1.0-18-amd64 x86_64
  mkdir ../control
  cd ../control || return
  printf '[boards]\ngate-1\ngate-2\noffice\n' >inventory
  cat >site.yml <<'PLAYBOOK'
- ansible.builtin.import_playbook: boards.yml

- name: What only gates need
  hosts: board_name_Kestrel_Rev_B
  tasks:
    - ansible.builtin.debug:
        msg: Number {{ ansible_local.ovxid.number }}
PLAYBOOK
  cp /usr/share/doc/ovxid/examples/ansible/* .
}

a_catalogue_with_a_mistake() {
  printf 'Kestrel Rev B;12:kestrel2\nTessaryn TQB:2:tqb\n' >known_ovx_ids
}

an_exporter() {
  mount -t tmpfs metrics /var/lib/prometheus/node-exporter
}

the_timer_and_the_exporter_run() {
  sed -n 's|^ExecStart=/usr/bin/ovxid||p' /etc/systemd/system/ovxid-prometheus.service | xargs ovxid
  prometheus-node-exporter 2>/dev/null &
  curl --silent --retry 20 --retry-delay 1 --retry-connrefused --output /dev/null http://localhost:9100/
}
