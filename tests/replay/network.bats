#!/usr/bin/env bats
# The kernel lists the addresses of the board, in the order of the recording.

# shellcheck source=tests/replay/board.bash
source "$BATS_TEST_DIRNAME/board.bash"

setup() {
  needs_namespaces
  make_board
}

addresses() {
  on_board ip -o -4 address | sed -E 's/^[0-9]+: [^ ]+ +inet ([^ /]+).* ([^ ]+)\\.*/\2 \1/'
}

@test "a board has the addresses of its recording" {
  expect 0 'lo 127.0.0.1
wan0 10.0.0.1
wan0:b 10.0.0.2
eth0 192.168.7.1' addresses
}

@test "addresses of every scope keep their order" {
  with_interfaces 'lo 10.9.9.9 00:00:00:00:00:00' 'lo 127.0.0.1 00:00:00:00:00:00' \
    'br 10.0.0.3 02:00:00:00:00:09' 'br 127.0.0.9 02:00:00:00:00:09'
  expect 0 'lo 10.9.9.9
lo 127.0.0.1
br 10.0.0.3
br 127.0.0.9' addresses
}

@test "the addresses of the loopback interface alone are of this host alone" {
  with_interfaces 'lo 127.0.0.1 00:00:00:00:00:00' 'eth0 10.0.0.2 02:00:00:00:00:09'
  expect 0 'lo host
eth0 global' on_board sh -c "ip -o -4 address | sed -E 's/^[0-9]+: ([^ ]+) .* scope ([a-z]+) .*/\1 \2/'"
}

# To open what is not there would make a file.
needs_tunnels() {
  needs test -c /dev/net/tun
  needs bash -c ': <>/dev/net/tun'
}

@test "a tunnel has its address" {
  needs_tunnels
  with_interfaces 'wwan0 10.0.0.1 00:00:00:00:00:00' 'eth0 10.0.0.2 02:00:00:00:00:09'
  expect 0 'wwan0 10.0.0.1
eth0 10.0.0.2' addresses
}

# Of each interface, the flags that tell that it is connected.
connected() {
  on_board ip -o link show | sed -E 's/^[0-9]+: ([^@:]+).*<(.*)>.*/\1 \2/' | grep -v ^ovxid-peer |
    grep -oE '^[^ ]+|\b(UP|LOWER_UP)\b' | paste -sd ' '
}

@test "the interfaces of a board are up and connected" {
  expect 0 'lo UP LOWER_UP wan0 UP LOWER_UP eth0 UP LOWER_UP' connected
}

@test "the interfaces of a board run as soon as the program does" {
  # shellcheck disable=SC2016  # These are variables of perl.
  expect 0 'lo wan0 eth0' on_board perl -MSocket -e '
    my ($SIOCGIFFLAGS, $IFF_RUNNING) = (0x8913, 0x40);
    socket(my $kernel, AF_INET, SOCK_DGRAM, 0) or die $!;
    print join(" ", grep { ioctl($kernel, $SIOCGIFFLAGS, my $query = pack("a16 x24", $_)) or die $!;
                           unpack("x16 S", $query) & $IFF_RUNNING } @ARGV)' lo wan0 eth0
}

@test "a tunnel is connected" {
  needs_tunnels
  with_interfaces 'wwan0 10.0.0.1 00:00:00:00:00:00'
  expect 0 'lo wwan0 UP LOWER_UP' connected
}

@test "a client reaches a server at the board's addresses" {
  local addresses=(10.0.0.1 10.0.0.2 192.168.7.1 127.0.0.1 127.9.9.9 ::1)
  # shellcheck disable=SC2016  # These are variables of perl.
  expect 0 "${addresses[*]}" on_board perl -MSocket=:all -e '
    sub reached {
      my $family = $_[0] =~ /:/ ? AF_INET6 : AF_INET;
      my $pack = $family == AF_INET ? \&pack_sockaddr_in : \&pack_sockaddr_in6;
      socket(my $server, $family, SOCK_STREAM, 0) && socket(my $client, $family, SOCK_STREAM, 0) or die $!;
      alarm(5);
      return bind($server, $pack->(0, inet_pton($family, $_[0]))) && listen($server, 1) &&
        connect($client, getsockname($server));
    }
    print join(" ", grep { reached($_) } @ARGV)' "${addresses[@]}"
}

@test "the other ends of the interfaces have no address" {
  expect 0 '' on_board sh -c 'ip -o address | grep ovxid-peer || true'
}

@test "an interface that is called like a word of ip is made" {
  with_interfaces 'br 10.0.0.1 02:00:00:00:00:09' 'up 10.0.0.2 02:00:00:00:00:0a'
  expect 0 'br 10.0.0.1
up 10.0.0.2' addresses
}

@test "an interface whose MAC address is not known has another one" {
  with_interfaces 'eth1 10.0.0.5 -'
  expect 0 'eth1 10.0.0.5' addresses
  expect 0 '' on_board sh -c 'ip -o link show eth1 | grep -q "00:00:00:00:00:00 brd"; test $? -eq 1'
}

@test "an interface without an address is there" {
  with_interfaces 'eth1 - 02:00:00:00:00:09'
  expect 0 '' addresses
  expect 0 02:00:00:00:00:09 on_board sh -c "ip -o link show eth1 | sed -E 's,.*link/ether ([^ ]+).*,\1,'"
}

# shellcheck disable=SC2016  # The shell in the namespace replaces the variable.
@test "a machine without a device for tunnels is told so" {
  local namespace=(unshare --mount)
  [[ $EUID -eq 0 ]] || namespace+=(--user --map-root-user)
  needs test -d /dev/net
  with_interfaces 'wwan0 10.0.0.1 00:00:00:00:00:00'
  expect 125 "ovxid-replay: /dev/net/tun: No such file or directory (the board has a tunnel, wwan0: that takes the\
 kernel's module tun, and the right to open this device)" "${namespace[@]}" \
    sh -c 'mount -t tmpfs none /dev/net && exec ovxid replay "$1" true' - "$board"
}

@test "an interface has the first MAC address that is known of it" {
  with_interfaces 'eth1 10.0.0.1 -' 'eth1:a 10.0.0.2 02:00:00:00:00:09' 'eth1:b 10.0.0.3 02:00:00:00:00:0a'
  expect 0 'eth1 10.0.0.1
eth1:a 10.0.0.2
eth1:b 10.0.0.3' addresses
  expect 0 02:00:00:00:00:09 on_board sh -c "ip -o link show eth1 | sed -E 's,.*link/ether ([^ ]+).*,\1,'"
}
