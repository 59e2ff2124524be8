"""Waiting for facts."""

import time

PATIENCE = 60  # seconds that a step may take; most need a tenth of one, on a busy machine some


class TourFailure(Exception):
    pass


def wait_for(what, condition, seconds=PATIENCE):
    """Returns the first true value of a condition; fails when there is none in time."""
    end = time.monotonic() + seconds
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > end:
            raise TourFailure(f"{what}: not seen within {seconds} s")
        time.sleep(0.02)
