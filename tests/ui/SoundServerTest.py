#!/usr/bin/env python3
"""Listens to the program's sounds: SoundServerTest.py DRIVER FOLDER, with the program that plays the sounds of
the folder when told. A private sound server plays them to nowhere and is recorded; whatever was told to sound must
be in the recording, whole, and nothing else. Exit code 77: no sound server can be started here."""
import array
import os
import shutil
import subprocess
import sys
import tempfile
import threading
import time

RATE = 44100
SAMPLE = 2  # bytes
SKIPPED = 77
PATIENCE = 10  # seconds
SHORTEST_REST = 2  # seconds that the stream is kept open
LATENCY = 0.25  # seconds; what is promised is 0.1, but the machine may be busy
TRIES = 3  # a busy machine may tear a hole into a stream

# Seconds after the one before, and what is to be heard. What sounds together does not reach the loudness that the
# mixer holds back, so that each can be subtracted from the recording.
ALONE = [(0.3, "cash"), (1, "click"), (0.2, "arrow"), (0.7, "beep"), (0.2, "exclamation"), (0.4, "applause")]
TOGETHER = [(2.7, "cash"), (0.4, "beep")] + [(0.08, "beep")] * 7 + [(0.3, "drumroll")] + [(0.15, "click")] * 7
TO_END = [(1.3, "to-end"), (0, "click")]


class Failure(Exception):
    """What was not as it should be."""


class Place:
    """A folder of a few seconds, with the environment in which everything runs."""

    def __init__(self, folder):
        self.folder = folder
        self.environment = {
            "PATH": os.environ.get("PATH", os.defpath), "HOME": folder, "XDG_RUNTIME_DIR": folder, "LC_ALL": "C",
            "PULSE_SERVER": f"unix:{folder}/socket", "PULSE_RUNTIME_PATH": folder, "PULSE_STATE_PATH": folder,
        }
        for name in ("ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"):
            if name in os.environ:
                self.environment[name] = os.environ[name]

    def start(self, *command, **streams):
        return subprocess.Popen(command, env=self.environment, **streams)

    def control(self, *words):
        return subprocess.run(("pactl",) + words, env=self.environment, capture_output=True, text=True, check=False)

    def start_server(self):
        """None when it does not answer."""
        server = self.start(
            "pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1", "--realtime=no",
            "--high-priority=no", "-L", f"module-native-protocol-unix auth-anonymous=1 socket={self.folder}/socket",
            "-L", sink("first"), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        if wait_until(lambda: self.control("info").returncode == 0 or server.poll() is not None) and not server.poll():
            return server
        end(server)
        return None

    def streams(self):
        return self.control("list", "short", "sink-inputs").stdout


def sink(name):
    return f"module-null-sink sink_name={name} rate={RATE} channels=1 format=s16le"


def wait_until(true, patience=PATIENCE):
    latest = time.monotonic() + patience
    while not true():
        if time.monotonic() > latest:
            return False
        time.sleep(0.05)
    return True


def end(process):
    process.kill()
    process.wait()


class Recording:
    """What a sink plays, from now on."""

    def __init__(self, place, name):
        self.samples = bytearray()
        self.process = place.start("parec", "--raw", "--format=s16le", f"--rate={RATE}", "--channels=1",
                                   "--latency-msec=20", "-d", name + ".monitor", stdout=subprocess.PIPE)
        self.arrivals = []  # bytes had so far, and when
        self.listener = threading.Thread(target=self.listen)
        self.listener.start()
        if not wait_until(lambda: self.samples):
            raise Failure(f"nothing can be recorded from {name}")

    def listen(self):
        while chunk := os.read(self.process.stdout.fileno(), 65536):
            self.samples += chunk
            self.arrivals.append((len(self.samples), time.monotonic()))

    def go_on(self, seconds):
        """Until so much more has been recorded, however late it comes."""
        wanted = len(self.samples) + seconds * RATE * SAMPLE
        if not wait_until(lambda: len(self.samples) >= wanted):
            raise Failure("the recording stops")

    def stop(self):
        end(self.process)
        self.listener.join()
        return array.array("h", bytes(self.samples[:len(self.samples) // SAMPLE * SAMPLE]))

    def heard_at(self, sample):
        return next(when for had, when in self.arrivals if had > sample * SAMPLE)


class Driver:
    """The program that plays."""

    def __init__(self, place, program, folder):
        self.process = place.start(program, folder, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def play(self, name):
        """Before and after the call, in seconds."""
        self.process.stdin.write(name + "\n")
        self.process.stdin.flush()
        return tuple(float(when) for when in self.process.stdout.readline().split())

    def ticks(self):
        with open(f"/proc/{self.process.pid}/stat", encoding="ascii") as file:
            return sum(int(field) for field in file.read().split()[13:15])

    def close(self):
        self.process.stdin.close()
        if self.process.wait(PATIENCE) != 0:
            raise Failure("the driver failed")


def read_waves(folder):
    waves = {}
    for name in ("cash", "click", "arrow", "applause", "drumroll", "card", "hold", "button", "beep", "exclamation"):
        with open(f"{folder}/{name}.wav", "rb") as file:
            waves[name] = array.array("h", file.read()[44:])
    waves["to-end"] = waves["cash"]
    return waves


def first_loud(samples, start=0):
    return next((i for i in range(start, len(samples)) if samples[i]), len(samples))


def take_out(recording, wave, start):
    """Takes the wave's first place from start on out of the recording; None when it has none."""
    edge = first_loud(wave)
    sought = wave[edge:edge + RATE // 100].tobytes()
    at = recording.tobytes().find(sought, start * SAMPLE)
    while at % SAMPLE != 0:
        if at < 0:
            return None
        at = recording.tobytes().find(sought, at + 1)
    begin = at // SAMPLE - edge
    for i, sample in enumerate(wave[:len(recording) - begin]):
        recording[begin + i] -= sample
    return begin


def play_all(driver, timetable):
    """Plays the whole timetable; the calls, each with the times before and after."""
    due = time.monotonic()
    calls = []
    for pause, name in timetable:
        due = max(due + pause, calls[-1][2] if calls else 0)
        time.sleep(max(0, due - time.monotonic()))
        calls.append((name, *driver.play(name)))
    return calls


def every_sound_is_heard_whole(place, driver, waves):
    recording = Recording(place, "first")
    try:
        calls = play_all(driver, ALONE + TOGETHER + TO_END)
        recording.go_on(0.5)
    finally:
        samples = recording.stop()
    begin = 0
    latencies = []
    for name, called, returned in calls:
        wave = waves[name]
        begin = take_out(samples, wave, begin)
        if begin is None:
            raise Failure(f"{name} was not heard, or not whole")
        latencies.append(recording.heard_at(begin) - called)
        over = recording.heard_at(begin + len(wave) - 1)
        if name == "to-end" and not over - LATENCY < returned < over + 1:
            raise Failure(f"{name} was over at {over:.3f}, but waited for until {returned:.3f}")
    if (rest := first_loud(samples)) < len(samples):
        raise Failure(f"something else was heard at sample {rest}")
    latencies.sort()
    print(f"{len(calls)} sounds, heard after {latencies[0]:.3f} to {latencies[-1]:.3f} s,"
          f" half of them within {latencies[len(latencies) // 2]:.3f} s")
    if latencies[len(latencies) // 2] > LATENCY:
        raise Failure("they came too late")


def several_times(attempt, *arguments):
    for left in reversed(range(TRIES)):
        try:
            attempt(*arguments)
            return
        except Failure as failure:
            print(f"{attempt.__name__}: {failure}")
            if left == 0:
                raise


def nothing_is_open_at_rest(place, driver):
    played = time.monotonic()
    if not wait_until(lambda: not place.streams()):
        raise Failure("the stream stays open")
    if time.monotonic() - played < SHORTEST_REST:
        raise Failure("the stream is closed too soon")
    before = driver.ticks()
    time.sleep(1)
    if driver.ticks() != before:
        raise Failure("the driver is busy though nothing sounds")


def is_heard_on(place, name, driver, waves):
    recording = Recording(place, name)
    try:
        driver.play("beep")
        recording.go_on(0.6)
    finally:
        samples = recording.stop()
    if take_out(samples, waves["beep"], 0) is None:
        raise Failure(f"not heard on {name}")


def a_rest_ends_with_a_whole_sound(place, name, driver, waves):
    nothing_is_open_at_rest(place, driver)
    is_heard_on(place, name, driver, waves)


def listen(place, program, folder):
    """False when there is nothing to listen to."""
    driver = Driver(place, program, folder)
    server = None
    try:
        for name in ("beep", "to-end"):  # there is no server yet
            before, after = driver.play(name)
            if after - before > 0.5:
                raise Failure("a sound is waited for though there is no server")
        server = place.start_server()
        if not server:
            return False
        time.sleep(1)  # in which the driver does not look for the server again
        waves = read_waves(folder)
        several_times(every_sound_is_heard_whole, place, driver, waves)
        # Another device becomes the default one while the stream is open, and later goes.
        place.control("load-module", *sink("second").split())
        place.control("set-default-sink", "second")
        several_times(is_heard_on, place, "second", driver, waves)
        several_times(a_rest_ends_with_a_whole_sound, place, "second", driver, waves)
        end(server)
        server = place.start_server()
        if not server:
            return False
        time.sleep(1)
        several_times(is_heard_on, place, "first", driver, waves)
        driver.play("cash")  # closed amid a sound
        driver.close()
        return True
    finally:
        end(driver.process)
        if server:
            end(server)


def main():
    if missing := [tool for tool in ("pulseaudio", "pactl", "parec") if not shutil.which(tool)]:
        print("Skipped: there is no", ", ".join(missing))
        return SKIPPED
    with tempfile.TemporaryDirectory() as folder:
        try:
            if not listen(Place(folder), *sys.argv[1:]):
                print("Skipped: the sound server does not start here")
                return SKIPPED
        except Failure as failure:
            print("FAILED:", failure)
            return 1
    print("all sounds were heard, each of them whole")
    return 0


if __name__ == "__main__":
    sys.exit(main())
