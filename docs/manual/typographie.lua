-- Blanks that never end a line: before the high marks and inside the quotation marks of French, between a number and
-- what follows it in both languages. The sources have plain blanks there.
local fine = '\u{202F}'   -- narrow, before ; ! ?
local large = '\u{A0}'
local francais = true

local unites = { mm = true, s = true, ['%'] = true, Hz = true, kHz = true, pas = true, steps = true }

local function blanc(avant, apres)
  if avant.t ~= 'Str' or apres.t ~= 'Str' then return nil end
  if avant.text:match('%d$') and (unites[apres.text:match('^[%a%%]+') or ''] or apres.text:match('^%%')) then
    return large
  end
  if avant.text:match('^[XYZ]$') and apres.text:match('^%d') then return large end
  if not francais then return nil end
  if apres.text:match('^[;!?]') then return fine end
  if apres.text:match('^:') or apres.text:match('^»') or avant.text:match('«$') then return large end
  return nil
end

local function suite(inlines)
  for i = 2, #inlines - 1 do
    if inlines[i].t == 'Space' or inlines[i].t == 'SoftBreak' then
      local avant, apres = inlines[i - 1], inlines[i + 1]
      local dur = blanc(avant, apres)
      -- also where one side is emphasised: **Ouvrir** :
      if not dur and francais and apres.t == 'Str' and apres.text:match('^[:;!?»]') then
        dur = apres.text:match('^[:»]') and large or fine
      end
      if not dur and francais and avant.t == 'Str' and avant.text:match('«$') then dur = large end
      if dur then inlines[i] = pandoc.Str(dur) end
    end
  end
  return inlines
end

return {
  { Meta = function(meta) francais = pandoc.utils.stringify(meta.lang or 'fr') == 'fr' end },
  { Inlines = suite },
}
