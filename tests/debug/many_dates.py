# many_dates.py - asks the printer of dates about many, each of which the program has written as a text as well.
import gdb


class ManyDatesDiffer(gdb.Function):
    """How many of the dates in the selected frame are shown otherwise than the library writes them; -1 when there are none."""

    def __init__(self):
        super().__init__("many_dates_differ")

    def invoke(self):
        frame = gdb.selected_frame()
        dates, texts = frame.read_var("dates"), frame.read_var("texts")
        low, high = texts.type.range()
        if high - low + 1 != 600:
            return -1
        different = 0
        for index in range(low, high + 1):
            shown = gdb.default_visualizer(dates[index]).to_string()
            if shown != texts[index].string():
                print("%s is shown as %s" % (texts[index].string(), shown))
                different += 1
        return different


ManyDatesDiffer()
