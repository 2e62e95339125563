"""Every member is called once, or is refused for a reason; and refuses what it cannot work on before the call."""
import warnings

import numpy
import pytest

import orbs
import orbs._shapes
from cases import LIBRARY, MEMBERS, Case, plain

pytestmark = pytest.mark.filterwarnings("ignore::orbs.StatusWarning")
CORE = {"SetNumThreads", "GetNumThreads", "GetStatusString"}


def test_the_list_is_that_of_the_headers():
    known = {m.short.removeprefix("orb") for h in LIBRARY if h.room not in ("orbcore", "orbdefs") for f in h.families
             for m in f.members}
    assert known == set(MEMBERS) - CORE | set(orbs._REFUSED)
    for name in orbs._REFUSED:
        with pytest.raises(AttributeError, match="not for Python: .{20}"):
            getattr(orbs, name)


@pytest.mark.parametrize("name", MEMBERS)
def test_call(name, monkeypatch):
    """Arrays of the sizes that the rules tell lie at the end of a page: a rule that is too short ends the process. What a
    call leaves unwritten is 0 in a new array, too."""
    monkeypatch.setattr(orbs._shapes, "empty", lambda n, dtype: numpy.full(n * dtype.itemsize, 0xaa, "u1").view(dtype))
    case = Case(name)
    out = case.out()
    into = plain(case.call(**case.lengths) if out is None else case.call(out=out))
    made = plain(Case(name).call(**case.lengths))
    if not name.startswith("Malloc_"):
        assert into == made
    if out is not None:
        outs = list(out) if isinstance(out, (tuple, list)) else [out]
        assert set(plain(outs)) <= set(into)


@pytest.mark.parametrize("name", [n for n, m in MEMBERS.items() if any(a.stars for a in m.arguments)])
def test_refusals(name):
    case = Case(name, place=numpy.copy)
    for parameter, role in case.roles.items():
        given = case.arguments.get(parameter)
        if role.kind == "object":
            for other in (3, None, orbs.Tone16s(1, 1), orbs.RandGauss32f(0, 1, 1)):
                if type(other) is not type(given):
                    with pytest.raises(TypeError, match="is needed"):
                        case.call(**{parameter: other, **case.lengths})
        if not isinstance(given, numpy.ndarray):
            continue
        with pytest.raises(TypeError, match=f"{parameter} is an array of"):
            case.call(**{parameter: numpy.zeros(given.size, "m8[s]"), **case.lengths})
        with pytest.raises(ValueError, match="axes"):
            case.call(**{parameter: given.reshape(1, -1), **case.lengths})
        if role.kind in ("inplace", "update"):
            shut = given.copy()
            shut.flags.writeable = False
            with pytest.raises(ValueError, match="read-only"):
                case.call(**{parameter: shut, **case.lengths})
            with pytest.raises(ValueError, match="strided"):
                case.call(**{parameter: numpy.repeat(given, 2)[::2], **case.lengths})
        else:
            expected = plain(Case(name, place=numpy.copy).call(**case.lengths))
            strided = numpy.repeat(given, 2)[::2]
            assert plain(Case(name, place=numpy.copy).call(**{parameter: strided, **case.lengths})) == expected \
                or name.startswith("Malloc")
    out = case.out(numpy.copy)
    if isinstance(out, numpy.ndarray):
        for wrong, fault in ((numpy.zeros(out.size, "m8[s]"), TypeError), (numpy.repeat(out, 2)[::2], ValueError),
                             (numpy.resize(out, (1, out.size)), ValueError), ([1.0], TypeError)):
            with pytest.raises(fault, match="out"):
                case.call(out=wrong)
        if not case.lengths:
            with pytest.raises(ValueError, match=f"out has {out.size + 1} elements, {out.size} "):
                case.call(out=numpy.zeros(out.size + 1, out.dtype))
        out.flags.writeable = False
        with pytest.raises(ValueError, match="read-only"):
            case.call(out=out)


@pytest.mark.parametrize("name", [n for n, m in MEMBERS.items() if sum(a.stars for a in m.arguments) > 1])
def test_lengths_that_do_not_fit(name):
    """An array that is one longer or shorter than the others want is refused, or all of them follow it; nothing is overrun."""
    case = Case(name)
    for parameter, role in case.roles.items():
        given = case.arguments.get(parameter)
        if isinstance(given, numpy.ndarray) and given.size > 1:
            try:
                with warnings.catch_warnings():
                    warnings.simplefilter("ignore")
                    Case(name).call(**{parameter: case.place(given[:-1]), **case.lengths})
            except (ValueError, orbs.Error):
                pass
