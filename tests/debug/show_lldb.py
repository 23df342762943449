# show_lldb.py - a variable as one line: what lldb shows for it, and for its parts where it is a sequence or has nothing
# to show itself.
import lldb


def shown(value):
    summary = value.GetSummary() or value.GetValue()
    if summary and "ILinkedSequence<" not in value.GetTypeName():
        return summary
    parts = [value.GetChildAtIndex(index) for index in range(value.GetNumChildren())]
    listed = "{%s}" % ", ".join("%s = %s" % (part.GetName(), shown(part)) for part in parts)
    return "%s %s" % (summary, listed) if summary else listed


def show(name):
    frame = lldb.debugger.GetSelectedTarget().process.GetSelectedThread().GetSelectedFrame()
    print("%s => %s" % (name, shown(frame.FindVariable(name))))
