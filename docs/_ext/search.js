// How the search of the reference ranks. Sphinx's own lists only pages with every word of a question, so that "remove hum"
// finds nothing. Here a page has the mean of its words' scores, rare words counting more and those that it lacks 0; and the
// tasks of a family, which its page gives to the index, count as its title does.
{
  let subjects; // files by the stems of what the index has for them

  const setIndex = Search.setIndex;
  Search.setIndex = (index) => {
    subjects = new Map();
    const stemmer = new Stemmer();
    for (const [entry, places] of Object.entries(index.indexentries)) {
      if (/ \(c \w+\)$/.test(entry)) { // a declaration, which is found as an object
        delete index.indexentries[entry];
        continue;
      }
      index.indexentries[entry] = places.map(([file]) => [file, ""]); // the page, once
      for (const word of splitQuery(entry)) {
        const stem = stemmer.stemWord(word);
        if (!subjects.has(stem)) subjects.set(stem, new Set());
        for (const [file] of places) subjects.get(stem).add(index.filenames[file]);
      }
    }
    for (const [title, places] of Object.entries(index.alltitles))
      index.alltitles[title] = places.map(([file, id]) => [file, index.titles[file] === title ? null : id]);
    setIndex(index);
  };

  const pagesWithAll = Search.performTermsSearch;
  Search.performTermsSearch = (words, excluded) => {
    const pages = new Map();
    let weights = 0;
    for (const word of words) {
      const found = pagesWithAll(new Set([word]), excluded);
      if (!found.length) continue;
      const weight = Math.log(1 + Search._index.filenames.length / found.length);
      weights += weight;
      for (const page of found) {
        const file = page[5];
        const score = subjects.get(word)?.has(file) ? Scorer.title : page[4];
        if (!pages.has(file)) pages.set(file, [...page.slice(0, 4), 0, file]);
        pages.get(file)[4] += weight * score;
      }
    }
    const results = [...pages.values()];
    const best = Math.max(...results.map((page) => page[4]));
    return results.filter((page) => page[4] > best / 4)
      .map((page) => [...page.slice(0, 4), page[4] / weights, page[5]]);
  };
}
