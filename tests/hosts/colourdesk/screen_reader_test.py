"""What a screen reader finds in Colour Desk's window, and does in it. Run by screen_reader_test.sh."""
import sys
import time
import warnings

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

warnings.simplefilter("ignore")


def fail(why):
    sys.exit("FAILED: " + why)


def wait_for(what, why):
    end = time.time() + 30
    while time.time() < end:
        GLib.MainContext.default().iteration(False)
        found = what()
        if found:
            return found
        time.sleep(0.02)
    fail(why)


def children(of):
    return [child for child in (of.get_child_at_index(i) for i in range(of.get_child_count())) if child]


def walk(top):
    yield top
    for child in children(top):
        yield from walk(child)


# Of the tool bar.
tools = ("Previous sample", "Next sample", "Next surround of colours (F7)", "Next theme")


def main():
    Atspi.init()
    program = wait_for(lambda: next((a for a in children(Atspi.get_desktop(0)) if a.get_name() == "colourdesk"), None),
                       "the program doesn't show itself")
    patches = wait_for(lambda: [o for o in walk(program) if o.get_role_name() == "push button" and o.get_name() not in tools],
                       "no patches")
    if len(patches) != 34:
        fail("there are %d patches" % len(patches))
    patch = patches[3]
    if patch.get_name() != "TCS04" or "D50" not in patch.get_description():
        fail("the fourth patch is %r, %r" % (patch.get_name(), patch.get_description()))
    if not any(o.get_name() == "a* to the right, b* upward" and o.get_role_name() == "panel" for o in walk(program)):
        fail("the chart has no name")

    focused = []
    listener = Atspi.EventListener.new(lambda event: focused.append(event.source.get_name()))
    listener.register("object:state-changed:focused")
    patch.get_action_iface().do_action(0)
    wait_for(lambda: any(o.get_name() == "TCS04" for o in walk(program) if o.get_role_name() == "label"),
             "a press didn't select the sample")
    patch.get_component_iface().grab_focus()
    wait_for(lambda: "TCS04" in focused, "nobody told of the focus, but of " + repr(focused))
    print("1 passed, 0 failed")


main()
