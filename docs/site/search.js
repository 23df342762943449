// Looks for what is typed in the index that make.py has made of the pages and the reference; it needs no server.
'use strict';

(() => {
  const field = document.getElementById('find');
  const list = document.getElementById('found');
  const here = document.currentScript.src.replace(/search\.js.*$/, '');
  const shownAtMost = 30;
  let entries = null;  // of the index: title, where, address, text

  field.parentElement.hidden = false;

  // The index is fetched as a script, because a page that was opened as a file may read nothing else.
  function load() {
    if (entries !== null) return;
    entries = [];
    const script = document.createElement('script');
    script.src = here + 'search-index.js';
    script.onload = () => {
      entries = window.quelmclIndex.map((entry) => ({entry, title: entry[0].toLowerCase(), text: entry.join(' ').toLowerCase()}));
      show();
    };
    document.head.append(script);
  }

  // How well an entry fits, 0 if not at all: every word has to be there, and titles count more than texts.
  function score({entry, title, text}, words) {
    let sum = 0;
    for (const word of words) {
      if (!text.includes(word)) return 0;
      sum += title === word ? 40 : title.startsWith(word) ? 20 : title.includes(word) ? 10 : 1;
    }
    return sum + (entry[1] === 'IString' ? 3 : entry[2].startsWith('page-') ? 2 : 0);  // rather than what few ask for
  }

  function find(query) {
    const words = query.toLowerCase().split(/\s+/).filter((word) => word !== '');
    if (words.length === 0) return [];
    return entries.map((one) => ({...one, words, score: score(one, words)}))
      .filter((one) => one.score > 0).sort((a, b) => b.score - a.score).slice(0, shownAtMost);
  }

  // The text around the first word that is found in it, with all words marked.
  function excerpt(text, words) {
    const lower = text.toLowerCase();
    const places = words.map((word) => lower.indexOf(word)).filter((place) => place >= 0);
    const begin = places.length === 0 ? 0 : Math.max(0, Math.min(...places) - 40);
    const cut = (begin > 0 ? '…' : '') + text.substr(begin, 160);
    const shown = document.createElement('p');
    const pattern = new RegExp('(' + words.map((word) => word.replace(/[^\p{L}\p{N}_]/gu, '\\$&')).join('|') + ')', 'giu');
    cut.split(pattern).forEach((piece, index) => {
      const node = document.createElement(index % 2 === 1 ? 'mark' : 'span');
      node.textContent = piece;
      shown.append(node);
    });
    return shown;
  }

  function item({entry, words}) {
    const link = document.createElement('a');
    const title = document.createElement('b');
    const where = document.createElement('span');
    title.textContent = entry[0];
    where.textContent = ' ' + entry[1];
    link.href = here + entry[2];
    link.append(title, where, excerpt(entry[3], words));
    link.addEventListener('click', close);
    const row = document.createElement('li');
    row.append(link);
    return row;
  }

  function show() {
    const query = field.value.trim();
    const found = query === '' || entries === null ? [] : find(query);
    list.replaceChildren(...found.map(item));
    if (query !== '' && found.length === 0 && entries !== null && entries.length > 0) {
      const none = document.createElement('li');
      none.className = 'none';
      none.textContent = 'Nothing found';
      list.append(none);
    }
  }

  function close() {
    list.replaceChildren();
  }

  field.addEventListener('focus', load);
  field.addEventListener('input', () => { load(); show(); });
  field.addEventListener('keydown', (event) => {
    const first = list.querySelector('a');
    if (event.key === 'Enter' && first !== null) first.click();
    if (event.key === 'ArrowDown' && first !== null) { event.preventDefault(); first.focus(); }
  });
  list.addEventListener('keydown', (event) => {
    const row = document.activeElement.parentElement;
    const next = event.key === 'ArrowDown' ? row.nextElementSibling : event.key === 'ArrowUp' ? row.previousElementSibling : null;
    if (event.key !== 'ArrowDown' && event.key !== 'ArrowUp') return;
    event.preventDefault();
    (next === null ? field : next.querySelector('a')).focus();
  });
  document.addEventListener('keydown', (event) => {
    if (event.key === 'Escape') close();
    if (event.key === '/' && document.activeElement !== field) { event.preventDefault(); field.focus(); }
  });
  document.addEventListener('click', (event) => {
    if (!field.parentElement.contains(event.target)) close();
  });

  // A link may ask for a search: ?find=words.
  const wanted = new URLSearchParams(location.search).get('find');
  if (wanted !== null) {
    field.value = wanted;
    load();
  }
})();
