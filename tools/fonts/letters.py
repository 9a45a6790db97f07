"""The characters both faces have beyond those that are drawn one by one."""

from unicodedata import normalize

ACCENTED = "ÀÁÂÃÄÅÇÈÉÊËÌÍÎÏÑÒÓÔÕÖÙÚÛÜÝàáâãäåçèéêëìíîïñòóôõöùúûüýÿ"
CEDILLA = "\u0327"

# Characters that look the same as another one that is drawn.
TWINS = {"\u00a0": " ", "\u00ad": "-", "\u2010": "-", "\u2011": "-", "º": "°",
         "\u03bc": "µ", "\u2215": "/", "\u2219": "·"}


def taken_apart(accented):
    """The letter to start from, which has no dot where an accent goes, and the accent."""
    letter, mark = normalize("NFD", accented)
    return {"i": "ı"}.get(letter, letter), mark


def named(word):
    """The character a drawing means by "A", or by "U+0301" for one not seen on its own."""
    return chr(int(word[2:], 16)) if word.startswith("U+") else word
